// The input box: what a user can type, what the host reads and writes, the
// messages it shows, what it persists, and its late-bound surface.

// Clicks reach the window first, as a user's do, so that QApplication moves
// the focus on its own.
#define QTEST_QPA_MOUSE_HANDLING

#include "fields/zelInputBox.h"
#include "zelFakePlatform.h"

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
        QTest::addColumn<int>("dataType");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("illegal");
        QTest::addColumn<QString>(
            "host"); // the host's KeyPress: "ab" turns a into b, "x" cancels x
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("beeps");
        auto row = [](const char *name, int type, int decimals, const char *illegal,
                      const char *host, const char *typed, const char *expected, int beeps = 0) {
            QTest::newRow(name) << type << decimals << QString(illegal) << QString(host)
                                << QString(typed) << QString(expected) << beeps;
        };
        row("minus into empty number", 5, 2, "", "", "-", "-");
        row("second minus refused", 5, 2, "", "", "-1-", "-1");
        row("minus behind digit refused", 5, 2, "", "", "5-", "5");
        row("point refused without decimals", 3, 0, "", "", "1.5", "15");
        row("one point with decimals", 5, 2, "", "", "1.5.", "1.5");
        row("letters and blanks refused in numbers", 2, 0, "", "", "1a 2", "12");
        row("text takes anything", 8, 0, "", "", "a-1.b.", "a-1.b.");
        row("illegal chars in text", 8, 0, "/\\", "", "a/b\\c", "abc", 2);
        row("illegal chars in numbers", 5, 2, "5", "", "151", "11", 1);
        row("host changes and cancels keys", 8, 0, "", "ab,x", "axc", "bc");
        row("a changed key is still checked", 5, 2, "", "1a", "12", "2");
    }

    void typingFollowsDataType()
    {
        QFETCH(int, dataType);
        QFETCH(int, decimals);
        QFETCH(QString, illegal);
        QFETCH(QString, host);
        QFETCH(QString, typed);
        zelTestScope scope;
        zelInputBox box;
        box.SetDataType(dataType);
        box.SetDecimals(decimals);
        box.SetIllegalChars(illegal);
        box.SetText(QString());
        QString heard;
        connect(&box, &zelInputBox::KeyPress, this, [&](qint16 &key) {
            heard += QChar(key);
            for (const QString &rule : host.split(u',', Qt::SkipEmptyParts))
                if (key == rule.at(0).unicode())
                    key = rule.size() > 1 ? qint16(rule.at(1).unicode()) : 0;
        });
        QTest::keyClicks(input(box), typed);
        QTEST(box.Text(), "expected");
        QTEST(scope.fake().beeps, "beeps");
        QCOMPARE(heard, typed); // the host hears every key first
    }

    void decimalsStayBelowMaxLength_data()
    {
        QTest::addColumn<int>("maxLength");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<int>("expectedMax");
        QTest::addColumn<int>("expectedDecimals");
        QTest::newRow("8 with 5") << 5 << 8 << 5 << 4;
        QTest::newRow("5 with 5") << 5 << 5 << 5 << 4;
        QTest::newRow("4 with 5") << 5 << 4 << 5 << 4;
        QTest::newRow("0 means 255") << 0 << 3 << 255 << 3;
    }

    void decimalsStayBelowMaxLength()
    {
        QFETCH(int, maxLength);
        QFETCH(int, decimals);
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
        QCOMPARE(marked[0][0].toString(), QStringLiteral("Decimals"));
    }

    void valueIsFormattedAndParsed_data()
    {
        QTest::addColumn<int>("dataType");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QVariant>("set");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QVariant>("read");
        QTest::addColumn<QString>("format");
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
        QFETCH(int, dataType);
        QFETCH(int, decimals);
        QFETCH(QVariant, set);
        QFETCH(QVariant, read);
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
        QTest::addColumn<QString>("how");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("real");
        QTest::addColumn<bool>("away");
        QTest::addColumn<int>("messages");
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
        QFETCH(QString, how);
        QFETCH(QString, typed);
        QFETCH(bool, real);
        QFETCH(bool, away);
        QFETCH(int, messages);
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
