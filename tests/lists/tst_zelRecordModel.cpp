// The row model shared by the combo, the tree list and the combo tree.

#include "lists/zelComboRecords.h"
#include "lists/zelRecordModel.h"
#include "zelTestData.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QTreeView>
#include <QtTest>

#include <algorithm>
#include <map>

namespace {

// The captions of parent's children as the model shows them.
QStringList shown(const zelRecordModel &m, int parent)
{
    QStringList out;
    for (int i = 0; i < m.ChildCount(parent); ++i)
        out << m.TextsOf(m.ChildAt(parent, i));
    return out;
}

} // namespace

class tst_zelRecordModel : public QObject
{
    Q_OBJECT

private slots:
    void sortedAddsMatchFullSort_data();
    void sortedAddsMatchFullSort();
    void findKey();
    void rowsAndRoles();
    void viewStaysConsistent();
};

void tst_zelRecordModel::sortedAddsMatchFullSort_data()
{
    zelColumns<quint32, int, bool>({"seed", "sortedPercent", "updates"});
    QTest::newRow("mixed") << 2u << 60 << false;
    QTest::newRow("mixed in updates") << 5u << 60 << true;
    QTest::newRow("mostly unsorted in updates") << 6u << 20 << true;
}

// After every add, each parent's rows must read as a stable sort of them
// would leave them if that add was sorted, or with the row appended if not.
void tst_zelRecordModel::sortedAddsMatchFullSort()
{
    const auto [seed, sortedPercent, updates] =
        zelFetch<quint32, int, bool>({"seed", "sortedPercent", "updates"});
    QRandomGenerator rng(seed);
    const QStringList captions{"b", "A", "a", "", "ab", "B", "c", "Ab", "ä", "Ä"};
    zelRecordModel m;
    m.SetColumns({zel::zelColumnDesc{"C"}});
    std::map<int, QStringList> expected; // parent handle -> captions in order
    std::vector<int> parents{0};
    bool inUpdate = false;
    for (int n = 0; n < 600; ++n) {
        if (updates && rng.bounded(40) == 0) {
            inUpdate ? m.EndUpdate() : m.BeginUpdate();
            inUpdate = !inUpdate;
        }
        const int parent = parents[rng.bounded(int(parents.size()))];
        const QString caption = captions[rng.bounded(int(captions.size()))];
        const bool sorted = int(rng.bounded(100)) < sortedPercent;
        const int h = m.AddRow(parent, nullptr, caption, {}, 0, true, sorted);
        QVERIFY(h > 0);
        if (parents.size() < 6 && rng.bounded(30) == 0)
            parents.push_back(h);
        QStringList &list = expected[parent];
        list << caption;
        if (sorted)
            std::stable_sort(list.begin(), list.end(), [](const QString &a, const QString &b) {
                return a.compare(b, Qt::CaseInsensitive) < 0;
            });
        if (!inUpdate)
            for (const auto &[p, captionsThere] : expected)
                QCOMPARE(shown(m, p), captionsThere);
    }
    if (inUpdate)
        m.EndUpdate();
    for (const auto &[p, captionsThere] : expected)
        QCOMPARE(shown(m, p), captionsThere);
}

void tst_zelRecordModel::findKey()
{
    zelComboRecords records;
    zelRecordModel m;
    m.SetColumns({zel::zelColumnDesc{"C"}});
    auto add = [&](int parent, const char *key, bool sorted = false) {
        const auto r =
            records.CreateRecord(QString::fromLatin1(key), QString::fromLatin1(key), {}, {});
        return m.AddRow(parent, r, QString::fromLatin1(key), {}, 0, true, sorted);
    };
    const int top = add(0, "Key");
    const int child = add(top, "child");
    QCOMPARE(m.FindKey(QStringLiteral("Key")), top);
    QCOMPARE(m.FindKey(QStringLiteral("key")), 0);
    QCOMPARE(m.FindKey(QStringLiteral("child")), child);
    QCOMPARE(m.FindKey(QString()), 0);

    // Rows without a record share the empty key: the first one shown wins.
    const int late = m.AddRow(0, nullptr, QStringLiteral("z"));
    const int early = m.AddRow(0, nullptr, QStringLiteral("!"), {}, 0, true, true);
    QCOMPARE(m.FindKey(QString()), early);
    QVERIFY(late != early);
    QCOMPARE(m.ParentOf(child), top);
}

void tst_zelRecordModel::rowsAndRoles()
{
    zelComboRecords records;
    zelRecordModel m;
    m.SetColumns({zel::zelColumnDesc{"Name", 0}, zel::zelColumnDesc{"Size", 2},
                  zel::zelColumnDesc{"X", -1}});
    m.SetImageProvider([](int i) { return QIcon(QPixmap(4 + i, 4)); });
    const auto r = records.CreateRecord("K", "one\ttwo", {}, {});
    const int h = m.AddRow(0, r, r->Data(), {}, 3, false);
    r->SetData(QStringLiteral("changed"));
    QCOMPARE(m.IndexOf(h, 0).data().toString(), QStringLiteral("one"));
    QCOMPARE(m.IndexOf(h, 1).data().toString(), QStringLiteral("two"));
    QCOMPARE(m.IndexOf(h, 0).data(Qt::UserRole).toString(), QStringLiteral("K"));
    QCOMPARE(m.flags(m.IndexOf(h)), Qt::NoItemFlags);
    QCOMPARE(m.IndexOf(h, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
             Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(m.IndexOf(h).data(Qt::DecorationRole).value<QIcon>().availableSizes().value(0),
             QSize(7, 4));

    // The tree column shows the tree text and the image too.
    m.SetTreeColumn(1);
    const int t = m.AddRow(h, nullptr, QStringLiteral("a\tb"), QStringLiteral("tree"), 1, true);
    QCOMPARE(m.CellText(t, 1), QStringLiteral("tree"));
    m.SetEnabled(h, true);
    QVERIFY(m.flags(m.IndexOf(h)) & Qt::ItemIsEnabled);

    m.SetCellPaint(t, 2, 0xC0FFC0, true);
    QCOMPARE(m.IndexOf(t, 2).data(Qt::BackgroundRole).value<QBrush>().color(),
             QColor(0xC0, 0xFF, 0xC0));
    QVERIFY(m.IndexOf(t, 2).data(Qt::FontRole).value<QFont>().bold());

    m.Clear();
    QCOMPARE(m.RowCount(), 0);
    QCOMPARE(m.FindKey(QStringLiteral("K")), 0);
    QVERIFY(!m.IsRow(h));
    QCOMPARE(r->Key(), QStringLiteral("K")); // the record is the caller's
}

void tst_zelRecordModel::viewStaysConsistent()
{
    zelRecordModel m;
    QAbstractItemModelTester tester(&m, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QTreeView view;
    view.setModel(&m);
    connect(&m, &zelRecordModel::ExpandRequested, &view, &QTreeView::setExpanded);
    view.resize(300, 400);
    view.show();
    m.SetColumns({zel::zelColumnDesc{"A"}, zel::zelColumnDesc{"B"}});
    const int root = m.AddRow(0, nullptr, QStringLiteral("m\t1"), {}, 0, true, true);
    for (const char *c : {"d", "x", "b", "x", "a"})
        m.AddRow(root, nullptr, QString::fromLatin1(c), {}, 0, true, std::string(c) != "x");
    m.SetExpanded(root, true);
    QCOMPARE(shown(m, root), QStringList({"a", "b", "d", "x", "x"}));

    m.BeginUpdate();
    m.BeginUpdate();
    for (const char *c : {"z", "c", "b"})
        m.AddRow(0, nullptr, QString::fromLatin1(c), {}, 0, true, true);
    m.AddRow(root, nullptr, QStringLiteral("c"), {}, 0, true, true);
    m.EndUpdate();
    m.EndUpdate();
    QCOMPARE(shown(m, 0), QStringList({"b", "c", "m\t1", "z"}));
    QCOMPARE(shown(m, root), QStringList({"a", "b", "c", "d", "x", "x"}));
    // The view walks to every row it shows: the root row is still expanded.
    int visible = 0;
    for (QModelIndex i = view.model()->index(0, 0); i.isValid(); i = view.indexBelow(i))
        ++visible;
    QCOMPARE(visible, 10);

    m.Clear();
    QCOMPARE(view.model()->rowCount(), 0);
}

QTEST_MAIN(tst_zelRecordModel)
#include "tst_zelRecordModel.moc"
