// The labelled field frame: its layout arithmetic in twips, and the widget
// that applies it (fixed height, busy flag, label texts, Enter as Tab).

#include "core/zelFieldFrame.h"
#include "fields/zelInputBox.h"
#include "zelFakePlatform.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <cmath>

namespace {

// Every character is 100 twips wide, bold ones 120.
qint32 fixedWidth(const QString &text, bool bold)
{
    return qint32(text.size()) * (bold ? 120 : 100);
}

} // namespace

class tst_Frame : public QObject
{
    Q_OBJECT

private slots:
    void layout_data()
    {
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<bool>("colon");
        QTest::addColumn<int>("prefixWidth");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<bool>("parens");
        QTest::addColumn<int>("suffixWidth");
        QTest::addColumn<int>("inner");
        QTest::addColumn<QString>("prefixText");
        QTest::addColumn<QString>("suffixText");
        QTest::addColumn<bool>("prefixVisible");
        QTest::addColumn<bool>("suffixVisible");
        QTest::addColumn<QRect>("input");
        QTest::addColumn<int>("suffixLeft");

        auto row = [](const char *name, const char *prefix, bool colon, int prefixWidth,
                      const char *suffix, bool parens, int suffixWidth, int inner,
                      const char *prefixText, const char *suffixText, const QRect &input,
                      int suffixLeft) {
            QTest::newRow(name) << QString(prefix) << colon << prefixWidth << QString(suffix)
                                << parens << suffixWidth << inner << QString(prefixText)
                                << QString(suffixText) << (*prefixText || prefixWidth)
                                << bool(*suffixText) << input << suffixLeft;
        };
        row("bare", "", false, 0, "", false, 0, 3000, "", "", QRect(0, 0, 3000, 315), 3000);
        row("empty prefix with colon hides label", "", true, 0, "", false, 0, 3000, "", "",
            QRect(0, 0, 3000, 315), 3000);
        row("prefix with colon", "Name", true, 0, "", false, 0, 3000, "Name:", "",
            QRect(560, 0, 2440, 315), 3000);
        row("fixed empty prefix still visible", "", false, 1200, "", false, 0, 3000, "", "",
            QRect(1260, 0, 1740, 315), 3000);
        row("suffix with parens", "", false, 0, "m", true, 0, 3000, "", "(m)",
            QRect(0, 0, 2640, 315), 2700);
        row("empty suffix with parens adds nothing", "", false, 0, "", true, 0, 3000, "", "",
            QRect(0, 0, 3000, 315), 3000);
        row("fixed suffix width", "A", false, 0, "B", false, 500, 3000, "A", "B",
            QRect(160, 0, 2280, 315), 2500);
        row("input never below 400", "", false, 900, "", false, 0, 1000, "", "",
            QRect(960, 0, 400, 315), 1000);
        row("both labels squeeze to 400", "Prefix", false, 0, "Suffix", false, 0, 1000, "Prefix",
            "Suffix", QRect(660, 0, 400, 315), 400);
    }

    void layout()
    {
        QFETCH(QString, prefix);
        QFETCH(bool, colon);
        QFETCH(int, prefixWidth);
        QFETCH(QString, suffix);
        QFETCH(bool, parens);
        QFETCH(int, suffixWidth);
        QFETCH(int, inner);
        zelFrameProps p;
        p.Prefix = prefix;
        p.PrefixColon = colon;
        p.PrefixWidth = prefixWidth;
        p.Suffix = suffix;
        p.SuffixParens = parens;
        p.SuffixWidth = suffixWidth;
        const zelFrameLayout l = zelLayoutFrame(p, inner, fixedWidth);
        QTEST(l.PrefixText, "prefixText");
        QTEST(l.SuffixText, "suffixText");
        QTEST(l.PrefixVisible, "prefixVisible");
        QTEST(l.SuffixVisible, "suffixVisible");
        QTEST(l.InputRect, "input");
        QTEST(l.SuffixRect.left(), "suffixLeft");
        QCOMPARE(l.PrefixRect.topLeft(), QPoint(0, 60));
        QCOMPARE(l.SuffixRect.top(), 60);
        QCOMPARE(l.SuffixRect.right() + 1, inner); // flush with the right edge
    }

    void layoutOverflowThrows()
    {
        zelFrameProps p;
        p.PrefixWidth = 40000; // the prefix space is a 16-bit number
        QVERIFY_THROWS_EXCEPTION(zelError, zelLayoutFrame(p, 3000, fixedWidth));
        p.PrefixWidth = 0;
        QVERIFY_THROWS_EXCEPTION(zelError, zelLayoutFrame(p, 100000, fixedWidth));
    }

    // The widget applies the layout in twips at 96 and at 144 dots per inch.
    void widgetFollowsTheScreen_data()
    {
        QTest::addColumn<double>("twipsPerPixel");
        QTest::newRow("96 dpi") << 15.0;
        QTest::newRow("144 dpi") << 10.0;
    }

    void widgetFollowsTheScreen()
    {
        QFETCH(double, twipsPerPixel);
        zelTestScope scope;
        scope.fake().twipsPerPixel = twipsPerPixel;
        zelInputBox box;
        box.SetPrefixWidth(1200);
        box.SetSuffix(QStringLiteral("m"));
        box.SetSuffixWidth(500);
        box.resize(int(3000 / twipsPerPixel), 100);
        box.show();
        // Each edge within half a pixel of its place in twips.
        auto at = [&](int px, int twips) {
            return std::abs(px * twipsPerPixel - twips) <= twipsPerPixel / 2;
        };
        const QRect input = box.findChild<QLineEdit *>(QStringLiteral("txtInput"))->geometry();
        const QRect suffix = box.findChild<QLabel *>(QStringLiteral("lblSuffix"))->geometry();
        QVERIFY(at(box.height(), 315) && at(input.height(), 315));
        QVERIFY(at(input.left(), 1260) && at(input.right() + 1, 2440));
        QVERIFY(at(suffix.left(), 2500) && at(suffix.top(), 60) && at(suffix.right() + 1, 3000));
        box.resize(box.width(), 40);
        QVERIFY(at(box.height(), 315));
    }

    void labelsShowTheirDecoratedTexts()
    {
        zelTestScope scope;
        zelInputBox box;
        box.resize(3000 / 15, 21);
        box.SetPrefix(QStringLiteral("Name"));
        box.SetPrefixColon(true);
        box.SetSuffix(QStringLiteral("m"));
        box.SetSuffixParens(true);
        auto *prefix = box.findChild<QLabel *>(QStringLiteral("lblPrefix"));
        auto *suffix = box.findChild<QLabel *>(QStringLiteral("lblSuffix"));
        auto *input = box.findChild<QLineEdit *>(QStringLiteral("txtInput"));
        QVERIFY(prefix && suffix && input);
        QCOMPARE(prefix->text(), QStringLiteral("Name:"));
        QCOMPARE(suffix->text(), QStringLiteral("(m)"));
        QVERIFY(!prefix->isHidden());
        // The input starts right of the prefix label and its 60-twip gap.
        QCOMPARE(box.FrameLayout().InputRect.left(), box.FrameLayout().PrefixRect.width() + 60);
        QCOMPARE(input->geometry().left(), zel::TwipsToPixels(box.FrameLayout().InputRect.left()));

        box.SetPrefix(QString());
        QVERIFY(prefix->isHidden());
        QCOMPARE(input->geometry().left(), 0);

        QCOMPARE(zelCaptureLogger::errors.size(), 0);
    }

    void failedLayoutLeavesBusyFlagSet()
    {
        zelTestScope scope;
        zelInputBox box;
        box.resize(200, 21);
        box.SetPrefix(QString(100000, QLatin1Char('W'))); // far wider than 16 bits of twips
        QVERIFY(box.LayoutBusy());
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelInputBox.UserControl_Resize")), 1);
        // Later resizes do nothing, the field still takes text.
        box.resize(300, 21);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelInputBox.UserControl_Resize")), 1);
        box.SetDataType(8);
        box.SetText(QStringLiteral("still works"));
        QCOMPARE(box.Text(), QStringLiteral("still works"));
    }

    void enterMovesFocusWhenAsked_data()
    {
        QTest::addColumn<bool>("sendKeysTab");
        QTest::newRow("SendKeysTab on") << true;
        QTest::newRow("SendKeysTab off") << false;
    }

    void enterMovesFocusWhenAsked()
    {
        QFETCH(bool, sendKeysTab);
        zelTestScope scope;
        QWidget form;
        auto *first = new zelInputBox(&form);
        auto *second = new zelInputBox(&form);
        first->SetDataType(8);
        first->SetSendKeysTab(sendKeysTab);
        second->move(0, 40);
        form.show();
        QApplication::setActiveWindow(&form);
        auto *input = first->findChild<QLineEdit *>(QStringLiteral("txtInput"));
        input->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        int returnPressed = 0;
        connect(input, &QLineEdit::returnPressed, this, [&] { ++returnPressed; });
        QTest::keyClick(input, Qt::Key_Return);
        QCOMPARE(scope.fake().tabsFrom.size(), sendKeysTab ? 1 : 0);
        QCOMPARE(returnPressed, sendKeysTab ? 0 : 1);
        if (sendKeysTab)
            QVERIFY(second->isAncestorOf(QApplication::focusWidget()));
    }
};

QTEST_MAIN(tst_Frame)
#include "tst_frame.moc"
