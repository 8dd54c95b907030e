// The column and row descriptions of the grid list and their collections.

#include "grid/zelGridColumns.h"
#include "grid/zelGridRows.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "zelFakePlatform.h"

#include <QtTest>

namespace {

// Rows "A", "B", "C" keyed "a", "b", "c".
std::shared_ptr<zelGridRows> threeRows()
{
    auto rows = std::make_shared<zelGridRows>();
    for (const char *k : {"a", "b", "c"})
        rows->Create(QString::fromLatin1(k), QString::fromLatin1(k).toUpper());
    return rows;
}

QString order(const zelGridRows &rows)
{
    QString s;
    for (const auto &r : rows)
        s += r->Data();
    return s;
}

QString text(const QVariant &object, const char *property)
{
    return qvariant_cast<QObject *>(object)->property(property).toString();
}

} // namespace

class tst_zelGridRows : public QObject
{
    Q_OBJECT

private slots:
    void moveFollowsItsRules_data()
    {
        QTest::addColumn<int>("oldIndex");
        QTest::addColumn<int>("newIndex");
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QString>("order");
        QTest::addColumn<int>("loggedErrors");

        QTest::newRow("last to last appends") << 3 << 3 << true << "ABC" << 0;
        QTest::newRow("first to last") << 1 << 3 << true << "BCA" << 0;
        QTest::newRow("last to first") << 3 << 1 << true << "CAB" << 0;
        QTest::newRow("second up") << 2 << 1 << true << "BAC" << 0;
        QTest::newRow("second down") << 2 << 3 << true << "ACB" << 0;
        QTest::newRow("same place in the middle") << 2 << 2 << true << "ABC" << 0;
        QTest::newRow("new index past the count") << 1 << 4 << false << "ABC" << 0;
        QTest::newRow("old index zero") << 0 << 1 << false << "ABC" << 0;
        // A target below 1 is not checked first: the row is taken out, cannot
        // go back in, and the failure is logged.
        QTest::newRow("new index zero loses the row") << 2 << 0 << false << "AC" << 1;
        QTest::newRow("old index past the count") << 4 << 2 << false << "ABC" << 1;
    }

    void moveFollowsItsRules()
    {
        QFETCH(int, oldIndex);
        QFETCH(int, newIndex);
        QFETCH(bool, answer);
        QFETCH(QString, order);
        QFETCH(int, loggedErrors);
        zelTestScope scope;

        auto rows = threeRows();
        qint32 o = oldIndex, n = newIndex;
        QCOMPARE(rows->Move(o, n), answer);
        QCOMPARE(::order(*rows), order);
        // The by-reference arguments come back unchanged; keys move with rows.
        QCOMPARE(o, oldIndex);
        QCOMPARE(n, newIndex);
        for (int i = 1; i <= rows->Count(); ++i)
            QCOMPARE(rows->IndexOfKey(rows->Item(i)->Data()), i);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRows.Move")), loggedErrors);
        QCOMPARE(zelLoggedErrors(), loggedErrors);
    }

    void duplicateKeysAreRefusedEmptyKeysTaken()
    {
        zelTestScope scope;
        zelGridRows rows;
        QVERIFY(rows.Create(QStringLiteral("k1"), QStringLiteral("one")));
        QVERIFY(!rows.Create(QStringLiteral("K1"), QStringLiteral("again")));
        auto twin = std::make_shared<zelGridRow>();
        twin->SetKey(QStringLiteral("k1"));
        QVERIFY(!rows.Add(twin));
        QCOMPARE(rows.Item(1)->Data(), QStringLiteral("one"));
        QVERIFY(rows.Create(QString(), QStringLiteral("a")));
        QVERIFY(rows.Add(std::make_shared<zelGridRow>()));
        QVERIFY(!rows.Add(std::shared_ptr<zelGridRow>()));
        QVERIFY(!rows.Add(static_cast<QObject *>(&rows)));
        QCOMPARE(rows.Count(), 3);

        // Columns are keyed by caption; Create takes the caption, then the alignment.
        zelGridColumns cols;
        QVERIFY(cols.Create(QStringLiteral("Name")));
        QVERIFY(!cols.Create(QStringLiteral("NAME")));
        auto col = std::make_shared<zelGridColumn>();
        col->SetCaption(QStringLiteral("name"));
        QVERIFY(!cols.Add(col));
        QVERIFY(cols.Create(QStringLiteral("Value"), ZEL_ColumnAlignRight));
        QCOMPARE(cols.Count(), 2);
        QCOMPARE(cols.Item(QStringLiteral("value"))->Alignment(), ZEL_ColumnAlignRight);
        QCOMPARE(cols.Item(1)->Alignment(), ZEL_ColumnAlignLeft);
        // None of these refusals is an error for the log.
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void itemAndRemoveTakeKeyOrPosition_data()
    {
        QTest::addColumn<QVariant>("key");
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("left");

        QTest::newRow("position") << QVariant(2) << "B"
                                  << "AC";
        QTest::newRow("position as double") << QVariant(3.0) << "C"
                                            << "AB";
        QTest::newRow("key other case") << QVariant(QStringLiteral("A")) << "A"
                                        << "BC";
        QTest::newRow("position zero") << QVariant(0) << ""
                                       << "ABC";
        QTest::newRow("position past the end") << QVariant(4) << ""
                                               << "ABC";
        QTest::newRow("unknown key") << QVariant(QStringLiteral("zz")) << ""
                                     << "ABC";
        QTest::newRow("nothing") << QVariant() << ""
                                 << "ABC";
    }

    void itemAndRemoveTakeKeyOrPosition()
    {
        QFETCH(QVariant, key);
        QFETCH(QString, item);
        QFETCH(QString, left);
        zelTestScope scope;
        auto rows = threeRows();
        const auto found = rows->Item(key);
        QCOMPARE(found ? found->Data() : QString(), item);
        QCOMPARE(rows->Remove(key), !item.isEmpty());
        QCOMPARE(order(*rows), left);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void clearLeavesEarlierEnumeratorsWalking()
    {
        zelTestScope scope;
        auto rows = threeRows();
        auto before = rows->NewEnum();
        QCOMPARE(text(before->Next(), "Data"), QStringLiteral("A"));
        rows->Clear();
        QCOMPARE(rows->Count(), 0);
        QVERIFY(!rows->NewEnum()->Next().isValid());
        QString rest;
        for (QVariant v = before->Next(); v.isValid(); v = before->Next())
            rest += text(v, "Data");
        QCOMPARE(rest, QStringLiteral("BC"));
        // The cleared collection takes the old keys again.
        QVERIFY(rows->Create(QStringLiteral("a"), QStringLiteral("new")));

        zelGridColumns cols;
        cols.Create(QStringLiteral("x"));
        auto colEnum = cols.NewEnum();
        cols.Clear();
        QCOMPARE(text(colEnum->Next(), "Caption"), QStringLiteral("x"));
        QVERIFY(!colEnum->Next().isValid());
    }

    void lateBoundCallerReachesEverything()
    {
        zelTestScope scope;
        for (const char *name : {"zelGridColumn", "zelGridColumns", "zelGridRow", "zelGridRows"}) {
            std::unique_ptr<QObject> o(zel::CreateObject(QStringLiteral("zelCtrl.%1").arg(name)));
            QVERIFY2(o && QLatin1String(o->metaObject()->className()) == QLatin1String(name), name);
        }
        auto setAndGet = [](QObject *o, const QList<QPair<const char *, QVariant>> &values) {
            for (const auto &[name, value] : values) {
                QVERIFY2(zel::SetProperty(o, QString::fromLatin1(name), value), name);
                QCOMPARE(zel::GetProperty(o, QString::fromLatin1(name)), value);
            }
        };
        std::unique_ptr<QObject> rows(zel::CreateObject(QStringLiteral("zelCtrl.zelGridRows")));
        const QVariant tag = QVariant::fromValue<QObject *>(rows.get());
        bool ok = false;
        QObject *row = qvariant_cast<QObject *>(
            zel::CallByName(rows.get(), QStringLiteral("Create"),
                            QVariantList{QStringLiteral("k"), QStringLiteral("a\tb"), tag}, &ok));
        QVERIFY(ok && row);
        QCOMPARE(zel::GetProperty(row, QStringLiteral("Key")).toString(), QStringLiteral("k"));
        QCOMPARE(zel::GetProperty(row, QStringLiteral("Tag")), tag);
        setAndGet(row, {{"Data", QStringLiteral("c")},
                        {"Selected", true},
                        {"Checked", true},
                        {"RowColor", 255u}});

        QVERIFY(zel::ObjectOf(zel::CallByName(rows.get(), QStringLiteral("Create"),
                                              {QStringLiteral("m"), QString()})));
        // Move's by-reference arguments come back unchanged.
        QVariantList args{2, 1};
        QVERIFY(zel::CallByName(rows.get(), QStringLiteral("Move"), args).toBool());
        QCOMPARE(args, (QVariantList{2, 1}));
        // The caller holds the enumerator as long as it keeps the answer.
        const QVariant enumerator = zel::CallByName(rows.get(), QStringLiteral("NewEnum"));
        QObject *walker = qvariant_cast<QObject *>(enumerator);
        QVERIFY(walker);
        QString keys;
        while (QObject *o =
                   qvariant_cast<QObject *>(zel::CallByName(walker, QStringLiteral("Next"))))
            keys += zel::GetProperty(o, QStringLiteral("Key")).toString();
        QCOMPARE(keys, QStringLiteral("mk"));
        QVERIFY(zel::CallByName(rows.get(), QStringLiteral("Remove"), {1}).toBool());
        zel::CallByName(rows.get(), QStringLiteral("Clear"));
        QCOMPARE(zel::CallByName(rows.get(), QStringLiteral("Count")).toInt(), 0);

        std::unique_ptr<QObject> cols(zel::CreateObject(QStringLiteral("zelCtrl.zelGridColumns")));
        QObject *col = qvariant_cast<QObject *>(
            zel::CallByName(cols.get(), QStringLiteral("Create"),
                            {QStringLiteral("Value"), int(ZEL_ColumnAlignRight)}));
        QVERIFY(col);
        setAndGet(col, {{"Width", 240},
                        {"Decimals", 2},
                        {"DataType", 5},
                        {"ComboList", QStringLiteral("a|b")},
                        {"Caption", QStringLiteral("Amount")},
                        {"AllowEdit", true},
                        {"Alignment", 3},
                        {"Tag", QVariant::fromValue<QObject *>(cols.get())}});
        QVERIFY(zel::CallByName(cols.get(), QStringLiteral("Item"), {1}).isValid());
        QVERIFY(zel::CallByName(cols.get(), QStringLiteral("NewEnum")).isValid());
        QVERIFY(zel::CallByName(cols.get(), QStringLiteral("Remove"), {1}).toBool());
        QCOMPARE(zel::GetProperty(cols.get(), QStringLiteral("Count")).toInt(), 0);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void wrongTypeByNameIsLoggedAndValueKept()
    {
        zelTestScope scope;
        zelGridColumn col;
        col.SetWidth(300);
        zel::SetProperty(&col, QStringLiteral("Width"), QStringLiteral("wide"));
        QCOMPARE(col.Width(), 300);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridColumn.Width Let")), 1);
        zel::SetProperty(&col, QStringLiteral("AllowEdit"), QStringLiteral("maybe"));
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridColumn.AllowEdit Let")), 1);

        zelGridRow row;
        zel::SetProperty(&row, QStringLiteral("RowColor"), QStringLiteral("red"));
        QCOMPARE(row.RowColor(), 0x80000005u);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRow.RowColor Let")), 1);
        QCOMPARE(zelCaptureLogger::errors.first().value(3).toInt(), 13);
    }

    void rowCellsSplitAndReplace_data()
    {
        QTest::addColumn<QString>("data");
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("cell");
        QTest::addColumn<QString>("after");

        QTest::newRow("middle") << "a\tb\tc" << 1 << "b"
                                << "a\tX\tc";
        QTest::newRow("last") << "a\tb\tc" << 2 << "c"
                              << "a\tb\tX";
        QTest::newRow("past the end") << "a\tb" << 3 << ""
                                      << "a\tb\t\tX";
        QTest::newRow("empty cells") << "\t\t" << 1 << ""
                                     << "\tX\t";
        QTest::newRow("empty text") << "" << 0 << ""
                                    << "X";
        QTest::newRow("negative") << "a" << -1 << ""
                                  << "a";
    }

    void rowCellsSplitAndReplace()
    {
        QFETCH(QString, data);
        QFETCH(int, column);
        QFETCH(QString, cell);
        QFETCH(QString, after);
        zelGridRow row;
        row.SetData(data);
        QCOMPARE(row.Cell(column).toString(), cell);
        row.SetCell(column, QStringLiteral("X"));
        QCOMPARE(row.Data(), after);
    }
};

QTEST_MAIN(tst_zelGridRows)
#include "tst_zelGridRows.moc"
