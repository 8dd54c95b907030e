// The records of the list controls, the column string and the row
// model that the combo, the tree list and the combo tree share.

#include "lists/zelColumnString.h"
#include "lists/zelComboRecords.h"
#include "lists/zelRecordStore.h"
#include "platform/zelLateBinding.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QtTest>

using zel::zelColumnDialect;

namespace {

// Columns as "caption:alignment:visibility:width", visibility d/s/h, ";"
// between columns, "!" behind a width that overflowed.
QString describe(const QList<zel::zelColumnDesc> &columns)
{
    QStringList out;
    for (const auto &c : columns)
        out << QStringLiteral("%1:%2:%3:%4%5")
                   .arg(c.caption)
                   .arg(c.alignment)
                   .arg(QChar("dsh"[c.visible]))
                   .arg(c.widthPixels)
                   .arg(c.widthOverflow ? QStringLiteral("!") : QString());
    return out.join(QLatin1Char(';'));
}

} // namespace

class tst_zelListsCore : public QObject
{
    Q_OBJECT

private slots:
    void parseColumns_data();
    void parseColumns();
    void absurdColumnStrings();
    void records();
    void removeRecordWalk_data();
    void removeRecordWalk();
    void keysSurviveGrowth();
};

void tst_zelListsCore::parseColumns_data()
{
    zelColumns<QString, bool, double, QString>({"colText", "tree", "tpp", "expected"});
    auto row = [](const char *name, const QString &colText, bool tree, double tpp,
                  const char *exp) {
        QTest::newRow(name) << colText << tree << tpp << QString::fromUtf8(exp);
    };
    row("empty combo", "", false, 15, "Default:1:d:0");
    row("tilde only", "~", false, 15, "Default:1:d:0");
    row("empty tree", "", true, 15, ":0:d:0");
    row("flags", "<Name~120\t>Size~60\t|Mid", false, 15, "Name:0:d:120;Size:2:d:60;Mid:1:d:0");
    row("underscore combo", "_Hid~40", false, 15, "Hid:-1:s:40");
    row("underscore tree", "_Hid~40", true, 15, "Hid:-1:h:40");
    row("300 pixels", "A~300", false, 15, "A:1:d:300");
    row("301 twips at 15", "A~301", false, 15, "A:1:d:20");
    row("301 twips at 10", "A~301", false, 10, "A:1:d:30");
    row("bad tpp counts 15", "A~1500", false, 0, "A:1:d:100");
    row("tiny tpp", "A~1500", false, 1e-300, "A:1:d:32767");
    row("trailing blanks kept inside", "  Name ~ 90  ", false, 15, "Name :1:d:90");
    row("trailing tab", "A\t", false, 15, "A:1:d:0;Default:1:d:0");
    row("non-numeric width", "A~wide", false, 15, "A:1:d:0");
    row("half to even", "A~12.5", false, 15, "A:1:d:12");
    row("lone flag", "<", false, 15, ":0:d:0");
    row("16-bit top", "A~32767", false, 15, "A:1:d:2184");
    row("overflow", "A~32768\tB~20", false, 15, "A:1:d:0!;B:1:d:20");
    row("huge", "A~1e9", true, 15, "A:1:d:0!");
    row("tildes", "~~~~", true, 15, ":0:d:0");
    row("control characters", "\x01\r\n~7", true, 15, "\x01\r\n:1:d:7");
}

void tst_zelListsCore::parseColumns()
{
    const auto [colText, tree, tpp, expected] =
        zelFetch<QString, bool, double, QString>({"colText", "tree", "tpp", "expected"});
    const auto dialect = tree ? zelColumnDialect::TreeList : zelColumnDialect::Combo;
    QCOMPARE(describe(zel::ParseColumns(colText, dialect, tpp)), expected);
}

void tst_zelListsCore::absurdColumnStrings()
{
    zel::zelColumnParseIssues issues;
    const QString many = QString(100000, QLatin1Char('\t'));
    const auto columns = zel::ParseColumns(many, zelColumnDialect::Combo, 15, &issues);
    QCOMPARE(columns.size(), zel::zelMaxColumns);
    QVERIFY(issues.truncated);

    zel::ParseColumns(QStringLiteral("A\tB~99999"), zelColumnDialect::Combo, 15, &issues);
    QCOMPARE(issues.overflowColumn, 1);
}

void tst_zelListsCore::records()
{
    zelTestScope scope;
    zelComboRecords records;
    QObject tag;
    const auto a = records.CreateRecord(QStringLiteral("A"), QStringLiteral("a\t1"),
                                        QVariant::fromValue(&tag), QString());
    QVERIFY(!records.CreateRecord(QStringLiteral("a"), QStringLiteral("x"), {}, QString()));
    // A parent that is not there yet stays unknown, even once it is added.
    const auto orphan =
        records.CreateRecord(QStringLiteral("C"), QStringLiteral("c"), {}, QStringLiteral("B"));
    const auto b = records.CreateRecord(QStringLiteral("B"), QStringLiteral("b"), {}, {});
    QVERIFY(orphan && b && !orphan->Parent());
    const auto child =
        records.CreateRecord(QStringLiteral("D"), QStringLiteral("d"), {}, QStringLiteral("b"));
    QCOMPARE(child->Parent(), b);

    QCOMPARE(records.Item(1), a);
    QCOMPARE(records.Item(QStringLiteral("b")), b);
    QVERIFY(!records.Item(5));
    QVERIFY(!records.Item(QVariant::fromValue(&tag)));

    // Late bound: Item hands out an object that goes on by name.
    QObject *byName = zel::ObjectOf(zel::CallByName(&records, QStringLiteral("Item"), {4}));
    QCOMPARE(byName->property("Key").toString(), QStringLiteral("D"));
    QCOMPARE(qvariant_cast<QObject *>(byName->property("Parent")), b.get());
    QVERIFY(!byName->setProperty("Key", QStringLiteral("Z")));
    QVERIFY(byName->setProperty("Parent", QVariant::fromValue(&tag)));
    QCOMPARE(child->Parent(), b); // not a record: refused and logged
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelComboRecord.Parent Set")), 1);

    const auto e = records.NewEnum();
    QCOMPARE(zel::ObjectOf(e->Next()), a.get());

    // A record kept by the host outlives the collection with its parents.
    std::weak_ptr<zelComboRecord> parentAlive = b;
    records.ClearRecords();
    QCOMPARE(records.Count(), 0);
    QCOMPARE(child->Key(), QStringLiteral("D"));
    QCOMPARE(child->Parent()->Key(), QStringLiteral("B"));
    QCOMPARE(a->Tag().value<QObject *>(), &tag);
    QVERIFY(!parentAlive.expired());
}

void tst_zelListsCore::removeRecordWalk_data()
{
    // Records as "key" or "key<parent" (parents set once all are made); the
    // key removed; the result and the records left with their parents.
    zelColumns<QString, QVariant, bool, QString>({"records", "remove", "result", "after"});
    auto row = [](const char *name, const char *recs, QVariant key, bool result,
                  const char *after) {
        QTest::newRow(name) << QString::fromLatin1(recs) << key << result
                            << QString::fromLatin1(after);
    };
    row("stops at a top-level record", "A,B<A,C<A", QStringLiteral("B"), false, "A,C<A");
    row("removal stands", "X,A<X,B,C<X", QStringLiteral("X"), false, "A,B,C<X");
    row("parent compared by case", "R,A<R", QStringLiteral("r"), true, "A<R");
    row("position against a text key", "R,A<R,B<R", 1, false, "A<R,B<R");
    row("position against a number key", "1,A<1", 1, true, "A");
}

void tst_zelListsCore::removeRecordWalk()
{
    const auto [colText, remove, result, after] =
        zelFetch<QString, QVariant, bool, QString>({"records", "remove", "result", "after"});
    zelTestScope scope;
    zelComboRecords records;
    const QStringList list = colText.split(QLatin1Char(','));
    for (const QString &r : list)
        records.CreateRecord(r.section(QLatin1Char('<'), 0, 0), {}, {}, {});
    for (const QString &r : list)
        if (r.contains(QLatin1Char('<')))
            records.Item(r.section(QLatin1Char('<'), 0, 0))
                ->SetParent(records.Item(r.section(QLatin1Char('<'), 1)));
    QCOMPARE(records.RemoveRecord(remove), result);
    QStringList left;
    for (const auto &r : records)
        left << r->Key() + (r->Parent() ? QLatin1Char('<') + r->Parent()->Key() : QString());
    QCOMPARE(left.join(QLatin1Char(',')), after);
}

QTEST_MAIN(tst_zelListsCore)
#include "tst_zelListsCore.moc"

// The key table grows many times over a fill; every key must still be
// found afterwards, a key taken in another letter case refused, and a
// removed key gone, however the growth reordered the table.
void tst_zelListsCore::keysSurviveGrowth()
{
    zel::zelRecordStore store;
    const int n = 20000;
    for (int i = 0; i < n; ++i)
        QCOMPARE(store.Create(QStringLiteral("Key%1").arg(i), QString()), i + 1);
    QCOMPARE(store.Create(QStringLiteral("KEY77"), QString()), 0);
    store.Remove(5001);
    for (int i = 0; i < n; ++i)
        QCOMPARE(store.Find(QStringLiteral("kEY%1").arg(i)), i == 5000 ? 0 : i + 1);
    QCOMPARE(store.Create(QStringLiteral("key5000"), QString()), n + 1);
}
