#include "buttons/zelButtonBar.h"

#include "zelFakePlatform.h"

#include <QTest>

// The bar's geometry in twips, without widgets.
class tst_ButtonBarLayout : public QObject
{
    Q_OBJECT

private slots:
    void placesVisibleButtonsFromTheRight_data();
    void placesVisibleButtonsFromTheRight();
    void emptyBarHasNoSize();
    void overflowingWidthRaisesOverflow();
    void classifiesLanguages_data();
    void classifiesLanguages();
};

void tst_ButtonBarLayout::placesVisibleButtonsFromTheRight_data()
{
    QTest::addColumn<qint32>("visible");
    QTest::addColumn<qint32>("buttonWidth");
    QTest::addColumn<qint32>("barWidth");
    // The left edge of each slot (bit 1, 2, 4, ... 128); -1 for a hidden one.
    QTest::addColumn<QList<int>>("lefts");

    QTest::newRow("OK and Cancel") << qint32(ZEL_StdButton_OKCancel) << 1080 << 2280
                                   << QList<int>{-1, -1, 1200, 0, -1, -1, -1, -1};
    QTest::newRow("four, English") << qint32(ZEL_StdButton_All) << 1080 << 4680
                                   << QList<int>{3600, 2400, 1200, 0, -1, -1, -1, -1};
    QTest::newRow("four, German") << qint32(ZEL_PrpButton_All) << 1200 << 5160
                                  << QList<int>{3960, 2640, 1320, 0, -1, -1, -1, -1};
    QTest::newRow("Help alone") << qint32(ZEL_StdButton_Help) << 1080 << 1080
                                << QList<int>{0, -1, -1, -1, -1, -1, -1, -1};
    QTest::newRow("OK and option 0") << qint32(ZEL_StdButton_OK | ZEL_StdButton_Option0) << 1080
                                     << 2280 << QList<int>{-1, -1, -1, 1200, 0, -1, -1, -1};
    QTest::newRow("Help and option 3") << qint32(ZEL_PrpButton_Help | ZEL_PrpButton_Option3) << 1080
                                       << 2280 << QList<int>{1200, -1, -1, -1, -1, -1, -1, 0};
    QTest::newRow("all eight") << qint32(255) << 1080 << 9480
                               << QList<int>{8400, 7200, 6000, 4800, 3600, 2400, 1200, 0};
    QTest::newRow("gaps in the set")
        << qint32(1 | 4 | 32) << 1000 << 3240 << QList<int>{2240, -1, 1120, -1, -1, 0, -1, -1};
    QTest::newRow("bits above 128 ignored")
        << qint32(256 | 512 | 8) << 1080 << 1080 << QList<int>{-1, -1, -1, 0, -1, -1, -1, -1};
    QTest::newRow("-1 shows all eight")
        << qint32(-1) << 500 << 4840 << QList<int>{4340, 3720, 3100, 2480, 1860, 1240, 620, 0};
    QTest::newRow("zero-width buttons")
        << qint32(15) << 0 << 360 << QList<int>{360, 240, 120, 0, -1, -1, -1, -1};
}

void tst_ButtonBarLayout::placesVisibleButtonsFromTheRight()
{
    QFETCH(qint32, visible);
    QFETCH(qint32, buttonWidth);
    QFETCH(qint32, barWidth);
    QFETCH(QList<int>, lefts);

    const zelButtonBarLayout l = zelLayoutButtonBar(visible, 255, buttonWidth, 400);
    QCOMPARE(l.Size, QSize(barWidth, 400));
    for (int slot = 0; slot < zelBarSlots; ++slot) {
        const zelBarButtonPlace &p = l.Buttons[size_t(slot)];
        const int left = lefts.at(slot);
        QCOMPARE(p.Visible, left >= 0);
        if (left >= 0)
            QCOMPARE(p.Rect, QRect(left, 0, buttonWidth, 400));
    }
}

void tst_ButtonBarLayout::emptyBarHasNoSize()
{
    const zelButtonBarLayout l = zelLayoutButtonBar(0, 255, 1080, 315);
    QCOMPARE(l.Count, 0);
    QVERIFY(l.Size.isEmpty());
    QCOMPARE(l.Size.width(), 0);
    QCOMPARE(l.Size.height(), 0);
    // Bits outside the eight buttons show nothing either.
    QCOMPARE(zelLayoutButtonBar(256, 255, 1080, 315).Count, 0);
}

void tst_ButtonBarLayout::overflowingWidthRaisesOverflow()
{
    try {
        zelLayoutButtonBar(255, 255, std::numeric_limits<qint32>::max() / 4, 315);
        QFAIL("no error raised");
    } catch (const zelError &e) {
        QCOMPARE(e.Number(), zelError::Overflow);
    }
}

void tst_ButtonBarLayout::classifiesLanguages_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("expected");
    QTest::newRow("empty") << QString() << int(zelBarLanguage::English);
    QTest::newRow("English") << QStringLiteral("English") << int(zelBarLanguage::English);
    QTest::newRow("ENGLISH") << QStringLiteral("ENGLISH") << int(zelBarLanguage::English);
    QTest::newRow("GERMAN") << QStringLiteral("GERMAN") << int(zelBarLanguage::German);
    QTest::newRow("Deutsch") << QStringLiteral("Deutsch") << int(zelBarLanguage::German);
    QTest::newRow("french") << QStringLiteral("french") << int(zelBarLanguage::Other);
    QTest::newRow("trailing blank") << QStringLiteral("german ") << int(zelBarLanguage::Other);
    QTest::newRow("de") << QStringLiteral("de") << int(zelBarLanguage::Other);
}

void tst_ButtonBarLayout::classifiesLanguages()
{
    QFETCH(QString, language);
    QFETCH(int, expected);
    QCOMPARE(int(zelClassifyLanguage(language)), expected);
}

QTEST_GUILESS_MAIN(tst_ButtonBarLayout)
#include "tst_buttonbarlayout.moc"
