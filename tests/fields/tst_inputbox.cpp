// The input box: what a user can type, what the host reads and writes, the
// messages it shows, what it persists, and its late-bound surface.

// Clicks reach the window first, as a user's do, so that QApplication moves
// the focus on its own.
#define QTEST_QPA_MOUSE_HANDLING

#include "fields/zelInputBox.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>
#include <optional>

namespace {

QLineEdit *input(zelInputBox &box)
{
    return box.findChild<QLineEdit *>(QStringLiteral("txtInput"));
}

// A shown, active form: two input boxes, a line edit and a button in tab
// order, and a second window to switch to.
struct Form
{
    QWidget elsewhere, window;
    zelInputBox *box = new zelInputBox(&window);
    zelInputBox *second = new zelInputBox(&window);
    QLineEdit *other = new QLineEdit(&window);
    QPushButton *button = new QPushButton(QStringLiteral("OK"), &window);

    bool show()
    {
        second->move(0, 30);
        other->move(0, 60);
        button->move(0, 90);
        return zelShowActive(window);
    }
};

} // namespace

class tst_InputBox : public QObject
{
    Q_OBJECT

private slots:
    void typingFollowsDataType_data()
    {
        zelColumns<int, int, QString, QString, QString, int>(
            {"dataType", "decimals", "illegal", "typed", "expected", "beeps"});
        auto row = [](const char *name, int type, int decimals, const char *illegal,
                      const char *typed, const char *expected, int beeps = 0) {
            QTest::newRow(name) << type << decimals << QString(illegal) << QString(typed)
                                << QString(expected) << beeps;
        };
        row("minus into empty number", 5, 2, "", "-", "-");
        row("second minus refused", 5, 2, "", "-1-", "-1");
        row("minus behind digit refused", 5, 2, "", "5-", "5");
        row("point refused without decimals", 3, 0, "", "1.5", "15");
        row("one point with decimals", 5, 2, "", "1.5.", "1.5");
        row("letters and blanks refused in numbers", 2, 0, "", "1a 2", "12");
        row("text takes anything", 8, 0, "", "a-1.b.", "a-1.b.");
        row("illegal chars in text", 8, 0, "/\\", "a/b\\c", "abc", 2);
        row("illegal chars in numbers", 5, 2, "5", "151", "11", 1);
        // Characters that a 16-bit KeyAscii holds as a negative number, and
        // those beyond 16 bits, are checked like any other.
        row("wide refused in numbers", 5, 0, "", "1\uac002\ufffd\U0001F600", "12");
        row("wide typed into text", 8, 0, "", "a\uac00\U0001F600", "a\uac00\U0001F600");
        row("wide illegal in text", 8, 0, "\uac00", "a\uac00b", "ab", 1);
    }

    void typingFollowsDataType()
    {
        const auto [dataType, decimals, illegal, typed] =
            zelFetch<int, int, QString, QString>({"dataType", "decimals", "illegal", "typed"});
        zelTestScope scope;
        zelInputBox box;
        box.SetDataType(dataType);
        box.SetDecimals(decimals);
        box.SetIllegalChars(illegal);
        box.SetText(QString());
        zelTypeKeys(input(box), typed);
        QTEST(box.Text(), "expected");
        QTEST(scope.fake().beeps, "beeps");
    }

    void decimalsStayBelowMaxLength_data()
    {
        zelColumns<int, int, int, int>(
            {"maxLength", "decimals", "expectedMax", "expectedDecimals"});
        QTest::newRow("8 with 5") << 5 << 8 << 5 << 4;
        QTest::newRow("5 with 5") << 5 << 5 << 5 << 4;
        QTest::newRow("4 with 5") << 5 << 4 << 5 << 4;
        QTest::newRow("0 means 255") << 0 << 3 << 255 << 3;
    }

    void decimalsStayBelowMaxLength()
    {
        const auto [maxLength, decimals] = zelFetch<int, int>({"maxLength", "decimals"});
        zelTestScope scope;
        zelInputBox box;
        QSignalSpy marked(&box, &zelInputBox::PropertyChanged);
        box.SetMaxLength(maxLength);
        box.SetDecimals(decimals);
        QTEST(int(box.MaxLength()), "expectedMax");
        QTEST(int(box.Decimals()), "expectedDecimals");
        QCOMPARE(input(box)->maxLength(), box.MaxLength());
        // MaxLength is never marked changed; Decimals is.
        QCOMPARE(marked.size(), 1);
        QCOMPARE(marked[0][0].toString(), "Decimals");
    }

    void valueIsFormattedAndParsed_data()
    {
        zelColumns<int, int, QVariant, QString, QVariant, QString>(
            {"dataType", "decimals", "set", "shown", "read", "format"});
        QTest::newRow("pi") << 5 << 2 << QVariant(3.14159) << "3.14" << QVariant(3.14) << "0.00";
        QTest::newRow("whole") << 5 << 0 << QVariant(2.5) << "2" << QVariant(2.0) << "0";
        QTest::newRow("negative") << 5 << 3 << QVariant(-1.5) << "-1.500" << QVariant(-1.5)
                                  << "0.000";
        QTest::newRow("text number")
            << 5 << 1 << QVariant("7.25") << "7.2" << QVariant(7.2) << "0.0";
        QTest::newRow("integer type") << 2 << 0 << QVariant(41.6) << "42" << QVariant(42) << "0";
        QTest::newRow("text field") << 8 << 2 << QVariant(true) << "True" << QVariant("True") << "";
    }

    void valueIsFormattedAndParsed()
    {
        const auto [dataType, decimals, set, read] =
            zelFetch<int, int, QVariant, QVariant>({"dataType", "decimals", "set", "read"});
        zelTestScope scope;
        zelInputBox box;
        box.SetDataType(dataType);
        box.SetDecimals(decimals);
        box.SetValue(set);
        QTEST(box.Text(), "shown");
        if (read.metaType().id() == QMetaType::QString)
            QCOMPARE(box.Value().toString(), read.toString());
        else
            QCOMPARE(box.Value().toDouble(), read.toDouble());
        QTEST(box.property("FormatString").toString(), "format");
        QCOMPARE(zelCaptureLogger::errors.size(), 0);
    }

    void valueKeepsRangeWhenLimited()
    {
        zelTestScope scope;
        zelInputBox box;
        box.SetText(QStringLiteral("12abc"));
        QCOMPARE(box.Value().toDouble(), 12.0);
        box.SetValueMin(1);
        box.SetValueMax(10);
        QCOMPARE(box.Value().toDouble(), 12.0); // not limited yet
        box.SetLimitValue(true);
        QCOMPARE(box.Value().toDouble(), 10.0);
        box.SetText(QStringLiteral("-3"));
        QCOMPARE(box.Value().toDouble(), 1.0);
        box.SetText(QString());
        QCOMPARE(box.Value().toDouble(), 1.0);
        // A 16-bit field reading a number beyond 16 bits logs the overflow.
        box.SetLimitValue(false);
        box.SetDataType(2);
        box.SetText(QStringLiteral("70000"));
        QVERIFY(!box.Value().isValid());
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelInputBox.Value Get")), 1);
    }

    // Ways of leaving a box limited to 0..10 that holds typed, beside a second
    // box out of range. real: the platform's own modal box; else the recording
    // platform. away: the focus goes with the window or the box.
    void leavingTheField_data()
    {
        zelColumns<QString, QString, bool, bool, int>({"how", "typed", "real", "away", "messages"});
        auto row = [](const char *how, const char *typed, bool real, bool away, int n) {
            QTest::newRow(qPrintable(QString("%1 %2%3").arg(how, typed, real ? " real" : "")))
                << QString(how) << QString(typed) << real << away << n;
        };
        for (const char *how : {"tab", "backtab", "click box", "click button", "host"})
            row(how, "11", false, false, 1);
        row("tab", "9.5", false, false, 0);
        row("click button", "9.5", false, false, 0);
        // Both boxes out of range: one box, not boxes taking turns.
        for (const char *how : {"tab", "backtab", "click box"})
            row(how, "11", true, false, 1);
        for (const char *how : {"deactivate", "menu", "hide", "close", "delete"})
            row(how, "11", true, true, 0);
    }

    void leavingTheField()
    {
        const auto [how, typed, real, away, messages] = zelFetch<QString, QString, bool, bool, int>(
            {"how", "typed", "real", "away", "messages"});
        std::optional<zelTestScope> scope;
        if (!real)
            scope.emplace();
        // Boxes are answered and popups closed as a user would: a box that
        // should not show fails the test instead of hanging it.
        int boxes = 0;
        QTimer watch;
        connect(&watch, &QTimer::timeout, [&] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                boxes += box->close();
            if (QWidget *popup = QApplication::activePopupWidget())
                popup->close();
        });
        watch.start(20);
        auto f = std::make_unique<Form>();
        for (zelInputBox *box : {f->box, f->second}) {
            box->SetValueMax(10);
            box->SetLimitValue(true);
            box->SetText(box == f->box ? typed : QStringLiteral("12"));
        }
        if (!f->show())
            QSKIP("The platform cannot activate a window");
        QPointer<QLineEdit> txt = input(*f->box);
        txt->setFocus();
        int moves = 0;
        connect(qApp, &QApplication::focusChanged, &f->window, [&] { ++moves; });
        QSignalSpy clicks(f->button, &QPushButton::clicked);
        const QHash<QString, std::function<void()>> act{
            {"tab", [&] { QTest::keyClick(txt, Qt::Key_Tab); }},
            {"backtab", [&] { QTest::keyClick(txt, Qt::Key_Backtab); }},
            {"click box", [&] { QTest::mouseClick(input(*f->second), Qt::LeftButton); }},
            {"click button", [&] { QTest::mouseClick(f->button, Qt::LeftButton); }},
            {"host", [&] { f->second->setFocus(); }},
            {"deactivate",
             [&] { f->elsewhere.show(), QApplication::setActiveWindow(&f->elsewhere); }},
            {"menu", [&] { qApp->postEvent(txt, new QContextMenuEvent({}, {}, {})); }},
            {"hide", [&] { f->box->hide(); }},
            {"close", [&] { f->window.close(); }},
            {"delete", [&] { f.reset(); }}};
        act[how]();
        QTest::qWait(200); // boxes taking turns would show by now
        QCOMPARE(real ? boxes : int(scope->fake().messages.size()), messages);
        if (away)
            return;
        QCOMPARE(f->window.focusWidget() == txt, messages == 1); // kept while a box is up
        QCOMPARE(f->box->Text(), messages ? typed : QStringLiteral("9.50"));
        QCOMPARE(clicks.size(), int(how == "click button" && !messages));
        // Tab and clicks are refused before the focus moves at all.
        QCOMPARE(moves == 0, messages && !real && how != "host");
        if (messages && !real)
            QCOMPARE(scope->fake().messages[0].title + ": " + scope->fake().messages[0].text,
                     "Data out of range: Value must be within the range of 0.00 through 10.00 "
                     "inclusive");
    }

    void changedOnlyForUserEdits()
    {
        zelTestScope scope;
        zelInputBox box;
        QSignalSpy changed(&box, &zelInputBox::Changed);
        box.SetValue(5);
        box.SetText(QStringLiteral("6"));
        box.SetDecimals(3);
        QCOMPARE(changed.size(), 0);
        QTest::keyClicks(input(box), QStringLiteral("12"));
        QCOMPARE(changed.size(), 2);
        // A setter that fails midway must not leave Changed switched off.
        box.SetValue(QStringLiteral("not a number"));
        QTest::keyClicks(input(box), QStringLiteral("1"));
        QCOMPARE(changed.size(), 3);
    }

    // Read-only shows the button face and leaves the tab order, also over a
    // disabled box; taken off, the window colour comes back.
    void readOnlyColours()
    {
        zelTestScope scope;
        zelInputBox box;
        auto base = [&] { return input(box)->palette().color(QPalette::Base); };
        box.SetEnabled(false);
        box.SetReadOnly(true);
        box.SetEnabled(true);
        QCOMPARE(base(), zel::ToQColor(zel::SysButtonFace));
        QVERIFY(input(box)->isReadOnly());
        QCOMPARE(input(box)->focusPolicy(), Qt::ClickFocus);
        box.SetReadOnly(false);
        QCOMPARE(base(), zel::ToQColor(zel::SysWindowBackground));
        QCOMPARE(input(box)->focusPolicy(), Qt::StrongFocus);
        box.SetEnabled(false);
        box.SetReadOnly(false);
        QCOMPARE(base(), zel::ToQColor(zel::SysWindowBackground));
        QCOMPARE(input(box)->palette().color(QPalette::Text), zel::ToQColor(zel::SysGrayText));
        QCOMPARE(input(box)->focusPolicy(), Qt::ClickFocus);
    }
};

QTEST_MAIN(tst_InputBox)
#include "tst_inputbox.moc"
