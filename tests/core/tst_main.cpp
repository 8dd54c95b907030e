// The drop-down height: the row floor, the cap that the first band counts
// towards and the second does not, and overflow as a logged failure.

#include "core/mMain.h"
#include "zelFakePlatform.h"

#include <QTest>

class tst_Main : public QObject
{
    Q_OBJECT

private slots:
    void minHeightList_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<bool>("first");
        QTest::addColumn<bool>("second");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("errors");
        QTest::newRow("no rows count as one") << 0 << false << false << 20 << 0;
        QTest::newRow("negative rows count as one") << -5 << false << false << 20 << 0;
        QTest::newRow("3 rows, both bands") << 3 << true << true << 92 << 0;
        QTest::newRow("11 rows, highest below the cap") << 11 << false << false << 180 << 0;
        QTest::newRow("12 rows capped") << 12 << false << false << 194 << 0;
        QTest::newRow("first band pushes over the cap") << 11 << true << false << 194 << 0;
        QTest::newRow("second band on top of the cap") << 12 << false << true << 214 << 0;
        QTest::newRow("20 rows, both bands") << 20 << true << true << 214 << 0;
        QTest::newRow("largest row count that fits") << 134217727 << false << false << 194 << 0;
        QTest::newRow("first band overflows") << 134217727 << true << true << 0 << 1;
        QTest::newRow("rows overflow") << 134217728 << false << false << 0 << 1;
    }

    void minHeightList()
    {
        QFETCH(int, rows);
        QFETCH(bool, first);
        QFETCH(bool, second);
        QFETCH(int, height);
        QFETCH(int, errors);
        zelTestScope scope;
        QCOMPARE(mMain::MinHeightList(rows, first, second), height);
        QCOMPARE(zelLoggedErrors(QStringLiteral("mMain.MinHeightList")), errors);
        QCOMPARE(zelLoggedErrors(), errors);
    }
};

QTEST_MAIN(tst_Main)
#include "tst_main.moc"
