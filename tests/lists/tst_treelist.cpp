// The tree list as a host and a user see it: its columns and header, the
// rows AddItem takes and refuses, levels, expansion by depth, selection
// events, pictures, the property store and Clear.

#include "lists/zelRecordModel.h"
#include "lists/zelTreeList.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

// Name and Area columns; farms F1 and F2 > fields P1 to P3 > zones Z1 to Z4.
std::unique_ptr<zelTreeList> farms()
{
    auto t = std::make_unique<zelTreeList>();
    t->SetColumns(u"<Name\t>Area"_s);
    const char *rows[][2] = {{"", "F1"},   {"F1", "P1"}, {"P1", "Z1"}, {"P1", "Z2"}, {"F1", "P2"},
                             {"P2", "Z3"}, {"", "F2"},   {"F2", "P3"}, {"P3", "Z4"}};
    for (const auto &r : rows)
        t->AddItem(QString::fromLatin1(r[0]), QString::fromLatin1(r[1]), r[1] + "\t12"_L1);
    return t;
}

QStringList expandedKeys(const zelTreeList &t)
{
    QStringList keys;
    for (int h = 1; h <= t.Model()->RowCount(); ++h)
        if (t.Tree()->isExpanded(t.Model()->IndexOf(h)))
            keys << t.Model()->KeyOf(h);
    return keys;
}

constexpr std::array<const char *, 6> kColumns{"colText", "twips", "count",
                                               "header",  "width", "hide"};
constexpr std::array<const char *, 6> kAdd{"parent", "key", "data", "level", "up", "depth"};

} // namespace

class tst_TreeList : public QObject
{
    Q_OBJECT

private slots:
    void columns_data()
    {
        zelColumns<QString, double, int, bool, int, bool>(kColumns);
        zelRow("one entry, no header", u"Name"_s, 15.0, 2, false, 100, false);
        zelRow("two entries, header", u"<Name\t>Area"_s, 15.0, 3, true, 100, false);
        zelRow("300 is pixels", u"Name~300"_s, 15.0, 2, false, 300, false);
        zelRow("301 twips at 96 DPI", u"Name~301"_s, 15.0, 2, false, 20, false);
        zelRow("300 at 144 DPI", u"Name~300"_s, 10.0, 2, false, 300, false);
        zelRow("301 twips at 144 DPI", u"Name~301"_s, 10.0, 2, false, 30, false);
        zelRow("_ hides", u"_Key\tName\tArea"_s, 15.0, 4, true, 0, true);
    }
    void columns()
    {
        const auto [colText, twips, count, header, width, hide] =
            zelFetch<QString, double, int, bool, int, bool>(kColumns);
        zelTestScope scope;
        scope.fake().twipsPerPixel = twips;
        zelTreeList t;
        t.Tree()->header()->setDefaultSectionSize(100);
        t.SetColumns(colText);
        QCOMPARE(t.Model()->ColumnCount(), count);
        QVERIFY(t.Tree()->isColumnHidden(count - 1) &&
                t.Model()->headerData(count - 1, Qt::Horizontal) == u"Hidden"_s);
        QCOMPARE(!t.Tree()->isHeaderHidden(), header);
        QCOMPARE(t.Tree()->header()->sectionSize(0), width);
        QCOMPARE(t.Tree()->isColumnHidden(0), hide);
    }

    // level -1: refused, nothing added.
    void addItem_data()
    {
        zelColumns<QString, QString, QString, int, QString, int>(kAdd);
        zelRow("empty data", QString(), u"new"_s, QString(), -1, QString(), 0);
        zelRow("more texts than columns", QString(), u"new"_s, u"a\tb\tc"_s, -1, QString(), 0);
        zelRow("key taken in other case", u"F1"_s, u"z1"_s, u"a"_s, -1, QString(), 0);
        zelRow("under a zone", u"Z1"_s, u"pest"_s, u"a\tb"_s, 3, u"Z1"_s, 3);
        zelRow("before its parent", u"later"_s, u"early"_s, u"a"_s, 0, QString(), 0);
        // The record's parent is found in any letter case, the row's only as given.
        zelRow("parent key in other case", u"p1"_s, u"odd"_s, u"a"_s, 2, u"P1"_s, 0);
    }
    void addItem()
    {
        const auto [parent, key, data, level, up, depth] =
            zelFetch<QString, QString, QString, int, QString, int>(kAdd);
        auto t = farms();
        const auto r = t->AddItem(parent, key, data);
        t->AddItem(QString(), u"later"_s, u"late"_s);
        QCOMPARE(t->Records()->Count(), level < 0 ? 10 : 11);
        QCOMPARE(t->Model()->RowCount(), level < 0 ? 10 : 11);
        QCOMPARE(bool(r), level >= 0);
        if (!r)
            return;
        QCOMPARE(r->Level(), level);
        QCOMPARE(r->Parent() ? r->Parent()->Key() : QString(), up);
        QCOMPARE(t->Model()->Depth(t->Model()->FindKey(key)), depth);
    }

    void expandLevel_data()
    {
        zelColumns<int, QStringList>({"depth", "expanded"});
        // AddItem opened every parent; a depth closes its own level and
        // opens those above it, and leaves deeper rows alone.
        zelRow("0", 0, QStringList{"P1", "P2", "P3"});
        zelRow("1", 1, QStringList{"F1", "F2"});
        zelRow("2", 2, QStringList{"F1", "P1", "P2", "F2", "P3"});
    }
    void expandLevel()
    {
        QFETCH(int, depth);
        auto t = farms();
        t->SetExpandLevel(depth);
        // Unknown keys (letter case counts) and rows change nothing.
        QVERIFY(!t->ExpandItem(u"f1"_s, false) && !t->UpdateImage(u"nope"_s, u"Farm"_s));
        QVERIFY(!t->PaintHeaderCells(9) && !t->PaintHeaderCells(0, 1, 3));
        QTEST(expandedKeys(*t), "expanded");
    }

    void selectItemEvents_data()
    {
        zelColumns<QStringList, QString, int>({"keys", "selected", "events"});
        zelRow("known", QStringList{"P1"}, u"P1"_s, 1);
        zelRow("unknown, none selected", QStringList{"x"}, QString(), 1);
        zelRow("unknown after a row", QStringList{"Z4", "x"}, QString(), 2);
        zelRow("disabled row", QStringList{"off"}, QString(), 0);
    }
    void selectItemEvents()
    {
        const auto [keys, selected, events] =
            zelFetch<QStringList, QString, int>({"keys", "selected", "events"});
        auto t = farms();
        t->AddItem(u"F2"_s, u"off"_s, u"Off"_s, {}, {}, {}, false);
        QSignalSpy changed(t.get(), &zelTreeList::Changed);
        for (const QString &k : keys)
            t->SelectItem(k);
        QCOMPARE(t->SelectedKey(), selected);
        QCOMPARE(changed, QList<QVariantList>(events, {false}));
    }

    void userClickRaisesChangedTrue()
    {
        zelTestScope scope;
        QWidget form;
        auto *t = new zelTreeList(&form);
        t->resize(300, 200);
        t->AddItem(QString(), u"F1"_s, u"Farm"_s);
        t->AddItem(u"F1"_s, u"P1"_s, u"Field"_s);
        QVERIFY(zelShowActive(form));
        QSignalSpy changed(t, &zelTreeList::Changed);
        QTest::mouseClick(t->Tree()->viewport(), Qt::LeftButton, {},
                          t->Tree()->visualRect(t->Model()->IndexOf(2)).center());
        QCOMPARE(changed, QList<QVariantList>{{true}});
        // Enter moves on to the next control.
        QTest::keyClick(t->Tree(), Qt::Key_Return);
        QCOMPARE(scope.fake().tabsFrom.size(), 1);
    }

    void images_data()
    {
        zelColumns<QString, QString, QColor>({"replaced", "shown", "colour"});
        zelRow("new key", u"Drone"_s, u"Drone"_s, QColor(Qt::red));
        zelRow("built-in replaced", u"farm"_s, u"Farm"_s, QColor(Qt::red));
        zelRow("cleared", QString(), u"Farm"_s, QColor());
    }
    void images()
    {
        const auto [replaced, shown, colour] =
            zelFetch<QString, QString, QColor>({"replaced", "shown", "colour"});
        zelTestScope scope;
        zelTreeList t;
        QPixmap red(16, 16);
        red.fill(Qt::red);
        replaced.isEmpty() ? t.ClearImages() : t.ReplaceImage(replaced, red);
        // A picture that cannot be read is logged and changes nothing.
        t.ReplaceImage(shown, u"/no/such/picture.png"_s);
        t.AddItem(QString(), u"row"_s, u"r"_s, {}, {}, shown);
        const QIcon icon = qvariant_cast<QIcon>(t.Model()->IndexOf(1).data(Qt::DecorationRole));
        QCOMPARE(icon.isNull() ? QColor() : icon.pixmap(16, 16).toImage().pixelColor(8, 8), colour);
        QCOMPARE(zelLoggedErrors(u"zelTreeList.ReplaceImage"_s), 1);
    }

    void loadAlwaysEnables()
    {
        zelTestScope scope;
        zelTreeList saved, loaded;
        saved.SetColumns(u"<Name\t>Area"_s);
        saved.SetEnabled(false);
        saved.SetHeaderVisible(false);
        zelMemoryPropertyBag bag;
        saved.WriteProperties(bag);
        QCOMPARE(bag.Value(u"Enabled"_s), QVariant(false));
        loaded.ReadProperties(bag);
        QVERIFY(loaded.Enabled() && loaded.isEnabled() && loaded.Tree()->isHeaderHidden());
        QCOMPARE(loaded.Model()->ColumnCount(), 3);
    }

    // A record's object is made only when asked for, reads through its row
    // while the row exists and keeps what it read when the rows go.
    void recordsOutliveTheirRows_data()
    {
        zelColumns<QString, bool>({"clearBy", "parentFirst"});
        zelRow("rows kept", QString(), false);
        zelRow("Clear", u"Clear"_s, false);
        zelRow("Clear, parent asked first", u"Clear"_s, true);
        zelRow("Columns of another count", u"Columns"_s, false);
    }
    void recordsOutliveTheirRows()
    {
        const auto [clearBy, parentFirst] = zelFetch<QString, bool>({"clearBy", "parentFirst"});
        auto t = farms();
        QObject tag;
        const int row = t->Model()->RowCount() + 1;
        const auto added =
            t->AddItem(u"z4"_s, u"Pest"_s, u"Aphid\t3"_s, {}, QVariant::fromValue(&tag));
        if (parentFirst)
            QCOMPARE(t->Records()->Item(u"Z4"_s)->Key(), u"Z4"_s);
        const std::shared_ptr<zelComboRecord> record = added;
        QCOMPARE(t->Records()->Item(u"PEST"_s), record);
        QCOMPARE(t->Records()->Item(row), record);
        record->SetData(u"Mite\t4"_s);
        QCOMPARE(t->Model()->CellText(row, 0), u"Aphid"_s);
        if (clearBy == u"Clear"_s)
            t->Clear();
        else if (!clearBy.isEmpty())
            t->SetColumns(u"Farm"_s);
        QCOMPARE(t->Records()->Count(), clearBy.isEmpty() ? row : 0);
        QCOMPARE(record->Key(), u"Pest"_s);
        QCOMPARE(record->Data(), u"Mite\t4"_s);
        QCOMPARE(record->Tag().value<QObject *>(), &tag);
        QCOMPARE(record->Level(), 3);
        QStringList chain;
        for (auto r = record->Parent(); r; r = r->Parent())
            chain << r->Key() + QString::number(r->Level());
        QCOMPARE(chain, QStringList({u"Z42"_s, u"P31"_s, u"F20"_s}));
    }

    // Clear, and a Columns change of count, empty the tree; what the host
    // holds lives on. A change of the same count keeps the rows.
    void clearLeavesRecordsTheHostHolds()
    {
        zelTestScope scope;
        auto t = farms();
        t->SelectItem(u"Z3"_s);
        const auto kept = t->SelectedRecord();
        QSignalSpy changed(t.get(), &zelTreeList::Changed);
        t->SetColumns(u"Farm\tSize"_s);
        QCOMPARE(t->Model()->RowCount() + t->Records()->Count(), 18);
        t->Clear();
        QCOMPARE(t->Model()->RowCount() + t->Records()->Count() + changed.count(), 0);
        QVERIFY(!t->SelectedRecord());
        QCOMPARE(kept->Parent()->Parent()->Key(), u"F1"_s);
        // A reference never used before the next Clear reaches no record:
        // logged, and no crash.
        const auto unused = t->AddItem(QString(), u"Z3"_s, u"again"_s);
        QVERIFY(unused);
        t->SetColumns(u"Farm"_s);
        const int before = zelLoggedErrors();
        QCOMPARE(unused->Key(), QString());
        QVERIFY(!unused.get());
        QCOMPARE(zelLoggedErrors(), before + 1);
        QCOMPARE(t->Model()->RowCount() + t->Records()->Count() + changed.count(), 0);
    }
};

QTEST_MAIN(tst_TreeList)
#include "tst_treelist.moc"
