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

namespace {

// Name and Area columns; farms F1 and F2 > fields P1 to P3 > zones Z1 to Z4.
std::unique_ptr<zelTreeList> farms()
{
    auto t = std::make_unique<zelTreeList>();
    t->SetColumns(QStringLiteral("<Name\t>Area"));
    const char *rows[][2] = {{"", "F1"},   {"F1", "P1"}, {"P1", "Z1"}, {"P1", "Z2"}, {"F1", "P2"},
                             {"P2", "Z3"}, {"", "F2"},   {"F2", "P3"}, {"P3", "Z4"}};
    for (const auto &r : rows)
        t->AddItem(r[0], r[1], QString::fromLatin1(r[1]) + QStringLiteral("\t12"));
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

QColor pixelOf(const zelTreeList &t, const QString &key)
{
    const QModelIndex i = t.Model()->IndexOf(t.Model()->FindKey(key));
    const QIcon icon = qvariant_cast<QIcon>(i.data(Qt::DecorationRole));
    return icon.isNull() ? QColor() : icon.pixmap(16, 16).toImage().pixelColor(8, 8);
}

} // namespace

class tst_TreeList : public QObject
{
    Q_OBJECT

private slots:
    void columns_data()
    {
        zelColumns<QString, double, int, bool, int, bool>(
            {"spec", "twips", "count", "header", "width0", "hidden0"});
        zelRow("one entry, no header", QStringLiteral("Name"), 15.0, 2, false, 100, false);
        zelRow("two entries, header", QStringLiteral("<Name\t>Area"), 15.0, 3, true, 100, false);
        zelRow("300 is pixels", QStringLiteral("Name~300"), 15.0, 2, false, 300, false);
        zelRow("301 twips at 96 DPI", QStringLiteral("Name~301"), 15.0, 2, false, 20, false);
        zelRow("300 at 144 DPI", QStringLiteral("Name~300"), 10.0, 2, false, 300, false);
        zelRow("301 twips at 144 DPI", QStringLiteral("Name~301"), 10.0, 2, false, 30, false);
        zelRow("_ hides", QStringLiteral("_Key\tName\tArea"), 15.0, 4, true, 0, true);
    }
    void columns()
    {
        const auto [spec, twips, count, header, width0, hidden0] =
            zelFetch<QString, double, int, bool, int, bool>(
                {"spec", "twips", "count", "header", "width0", "hidden0"});
        zelTestScope scope;
        scope.fake().twipsPerPixel = twips;
        zelTreeList t;
        t.Tree()->header()->setDefaultSectionSize(100);
        t.SetColumns(spec);
        QCOMPARE(t.Model()->ColumnCount(), count);
        QCOMPARE(t.Model()->headerData(count - 1, Qt::Horizontal).toString(), "Hidden");
        QVERIFY(t.Tree()->isColumnHidden(count - 1));
        QCOMPARE(!t.Tree()->isHeaderHidden(), header);
        QCOMPARE(t.Tree()->header()->sectionSize(0), width0);
        QCOMPARE(t.Tree()->isColumnHidden(0), hidden0);
    }

    void columnsRebuiltOnlyWhenTheCountChanges_data()
    {
        zelColumns<QString, int, QString>({"spec", "records", "caption"});
        zelRow("same count", QStringLiteral("Farm\tSize"), 9, QStringLiteral("Farm"));
        zelRow("fewer", QStringLiteral("Farm"), 0, QStringLiteral("Farm"));
        zelRow("more", QStringLiteral("A\tB\tC"), 0, QStringLiteral("A"));
    }
    void columnsRebuiltOnlyWhenTheCountChanges()
    {
        const auto [spec, records, caption] =
            zelFetch<QString, int, QString>({"spec", "records", "caption"});
        auto t = farms();
        t->SelectItem(QStringLiteral("P1"));
        QSignalSpy changed(t.get(), &zelTreeList::Changed);
        t->SetColumns(spec);
        QCOMPARE(t->Records()->Count(), records);
        QCOMPARE(t->Model()->RowCount(), records);
        QCOMPARE(t->Model()->headerData(0, Qt::Horizontal).toString(), caption);
        QCOMPARE(changed.count(), 0);
    }

    void addItemRefusals_data()
    {
        zelColumns<QString, QString, QString>({"parent", "key", "data"});
        zelRow("empty data", QString(), QStringLiteral("new"), QString());
        zelRow("more texts than columns", QString(), QStringLiteral("new"),
               QStringLiteral("a\tb\tc"));
        zelRow("key taken in other case", QStringLiteral("F1"), QStringLiteral("z1"),
               QStringLiteral("a"));
    }
    void addItemRefusals()
    {
        const auto [parent, key, data] =
            zelFetch<QString, QString, QString>({"parent", "key", "data"});
        auto t = farms();
        QVERIFY(!t->AddItem(parent, key, data));
        QCOMPARE(t->Records()->Count(), 9);
        QCOMPARE(t->Model()->RowCount(), 9);
        QCOMPARE(t->Model()->ChildCount(t->Model()->FindKey(QStringLiteral("F1"))), 2);
    }

    void levelAndParent_data()
    {
        zelColumns<QString, QString, int, QString, int>(
            {"parent", "key", "level", "recordParent", "depth"});
        zelRow("under a zone", QStringLiteral("Z1"), QStringLiteral("pest"), 3,
               QStringLiteral("Z1"), 3);
        zelRow("before its parent", QStringLiteral("later"), QStringLiteral("early"), 0, QString(),
               0);
        // The record's parent is found in any letter case, the row's only as given.
        zelRow("parent key in other case", QStringLiteral("p1"), QStringLiteral("odd"), 2,
               QStringLiteral("P1"), 0);
    }
    void levelAndParent()
    {
        const auto [parent, key, level, recordParent, depth] =
            zelFetch<QString, QString, int, QString, int>(
                {"parent", "key", "level", "recordParent", "depth"});
        auto t = farms();
        const auto r = t->AddItem(parent, key, QStringLiteral("x"));
        t->AddItem(QString(), QStringLiteral("later"), QStringLiteral("late"));
        QVERIFY(r);
        QCOMPARE(r->Level(), level);
        QCOMPARE(r->Parent() ? r->Parent()->Key() : QString(), recordParent);
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
        QTEST(expandedKeys(*t), "expanded");
    }

    void unknownKeysChangeNothing()
    {
        zelTestScope scope;
        auto t = farms();
        const QStringList before = expandedKeys(*t);
        QVERIFY(!t->ExpandItem(QStringLiteral("f1"), false));
        QVERIFY(!t->UpdateImage(QStringLiteral("nope"), QStringLiteral("Farm")));
        QVERIFY(!t->PaintHeaderCells(9));
        QVERIFY(!t->PaintHeaderCells(0, 1, 3));
        QCOMPARE(expandedKeys(*t), before);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelTreeList.PaintHeaderCells")), 2);
    }

    void selectItemEvents_data()
    {
        zelColumns<QStringList, QString, int>({"keys", "selected", "events"});
        zelRow("known", QStringList{"P1"}, QStringLiteral("P1"), 1);
        zelRow("same twice", QStringList{"P1", "P1"}, QStringLiteral("P1"), 1);
        zelRow("unknown, none selected", QStringList{"x"}, QString(), 1);
        zelRow("unknown after a row", QStringList{"Z4", "x"}, QString(), 2);
        zelRow("other case", QStringList{"p1"}, QString(), 1);
        zelRow("disabled row", QStringList{"off"}, QString(), 0);
    }
    void selectItemEvents()
    {
        const auto [keys, selected, events] =
            zelFetch<QStringList, QString, int>({"keys", "selected", "events"});
        auto t = farms();
        t->AddItem(QStringLiteral("F2"), QStringLiteral("off"), QStringLiteral("Off"), {}, {}, {},
                   false);
        QSignalSpy changed(t.get(), &zelTreeList::Changed);
        for (const QString &k : keys)
            t->SelectItem(k);
        QCOMPARE(t->SelectedKey(), selected);
        QCOMPARE(changed.count(), events);
        for (const auto &args : changed)
            QCOMPARE(args.at(0).toBool(), false);
    }

    void userClickRaisesChangedTrue()
    {
        zelTestScope scope;
        QWidget form;
        auto *t = new zelTreeList(&form);
        t->resize(300, 200);
        t->AddItem(QString(), QStringLiteral("F1"), QStringLiteral("Farm"));
        t->AddItem(QStringLiteral("F1"), QStringLiteral("P1"), QStringLiteral("Field"));
        QVERIFY(zelShowActive(form));
        QSignalSpy changed(t, &zelTreeList::Changed);
        const QModelIndex i = t->Model()->IndexOf(2);
        QTest::mouseClick(t->Tree()->viewport(), Qt::LeftButton, {},
                          t->Tree()->visualRect(i).center());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toBool(), true);
        QCOMPARE(t->SelectedKey(), QStringLiteral("P1"));
        // Enter moves on to the next control.
        QTest::keyClick(t->Tree(), Qt::Key_Return);
        QCOMPARE(scope.fake().tabsFrom.size(), 1);
    }

    void images_data()
    {
        zelColumns<QString, QVariant, QString, QColor>({"key", "handle", "shown", "colour"});
        QPixmap red(16, 16);
        red.fill(Qt::red);
        zelRow("new key", QStringLiteral("Drone"), QVariant(red), QStringLiteral("Drone"),
               QColor(Qt::red));
        zelRow("built-in replaced", QStringLiteral("farm"), QVariant(red), QStringLiteral("Farm"),
               QColor(Qt::red));
        zelRow("cleared", QString(), QVariant(), QStringLiteral("Farm"), QColor());
    }
    void images()
    {
        const auto [key, handle, shown, colour] =
            zelFetch<QString, QVariant, QString, QColor>({"key", "handle", "shown", "colour"});
        zelTestScope scope;
        zelTreeList t;
        t.AddItem(QString(), QStringLiteral("before"), QStringLiteral("b"), {}, {},
                  QStringLiteral("Farm"));
        const QColor builtIn = pixelOf(t, QStringLiteral("before"));
        if (key.isEmpty())
            t.ClearImages();
        else
            t.ReplaceImage(key, handle);
        t.ReplaceImage(shown, QStringLiteral("/no/such/picture.png"));
        t.AddItem(QString(), QStringLiteral("row"), QStringLiteral("r"), {}, {}, shown);
        QCOMPARE(pixelOf(t, QStringLiteral("row")), colour);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelTreeList.ReplaceImage")), 1);
        QVERIFY(builtIn.isValid() && builtIn != colour);
    }

    void loadAlwaysEnables()
    {
        zelTestScope scope;
        zelTreeList saved;
        saved.SetColumns(QStringLiteral("<Name\t>Area"));
        saved.SetEnabled(false);
        saved.SetHeaderVisible(false);
        zelMemoryPropertyBag bag;
        saved.WriteProperties(bag);
        QCOMPARE(bag.Value(QStringLiteral("Enabled")), QVariant(false));
        zelTreeList loaded;
        loaded.ReadProperties(bag);
        QVERIFY(loaded.Enabled() && loaded.isEnabled());
        QCOMPARE(loaded.Columns(), saved.Columns());
        QCOMPARE(loaded.Model()->ColumnCount(), 3);
        QVERIFY(loaded.Tree()->isHeaderHidden());
    }

    void clearLeavesRecordsTheHostHolds()
    {
        auto t = farms();
        t->SelectItem(QStringLiteral("Z3"));
        const auto kept = t->SelectedRecord();
        QSignalSpy changed(t.get(), &zelTreeList::Changed);
        t->Clear();
        QCOMPARE(t->Records()->Count(), 0);
        QCOMPARE(t->Model()->RowCount(), 0);
        QVERIFY(!t->SelectedRecord());
        QCOMPARE(changed.count(), 0);
        QCOMPARE(kept->Parent()->Parent()->Key(), QStringLiteral("F1"));
        QVERIFY(t->AddItem(QString(), QStringLiteral("Z3"), QStringLiteral("again")));
    }
};

QTEST_MAIN(tst_TreeList)
#include "tst_treelist.moc"
