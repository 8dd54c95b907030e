// The row and column collections of the grid list: moves, keys, cells.

#include "grid/zelGridColumns.h"
#include "grid/zelGridRows.h"
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
