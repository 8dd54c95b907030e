// The labelled field frame: its layout arithmetic in twips, and what every
// control built on it does alike, one row per control: labels placed at two
// screens, refused data types, the host's say over each key, select-all on
// entry, disabled colours, Enter as Tab, and a layout that fails.

#include "core/zelFieldFrame.h"
#include "fields/zelDateTime.h"
#include "fields/zelInputBox.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

namespace {

// Every character is 100 twips wide, bold ones 120.
qint32 fixedWidth(const QString &text, bool bold)
{
    return qint32(text.size()) * (bold ? 120 : 100);
}

// A field made by its program identifier on a form, before a line edit in
// the tab order.
struct Field
{
    QWidget form;
    zelLabelledField *f;
    QLineEdit *txt;
    QLineEdit *other;

    explicit Field(const QString &control)
        : f(qobject_cast<zelLabelledField *>(zel::CreateObject("zelCtrl." + control, &form))),
          txt(f->findChild<QLineEdit *>(QStringLiteral("txtInput"))), other(new QLineEdit(&form))
    {
        f->setGeometry(0, 0, 200, 21);
        other->move(0, 40);
    }
    void set(const char *name, const QVariant &v) { zel::SetProperty(f, name, v); }
};

void addControls()
{
    QTest::addColumn<QString>("control");
    QTest::newRow("input box") << QStringLiteral("zelInputBox");
    QTest::newRow("date field") << QStringLiteral("zelDateTime");
}

} // namespace

Q_DECLARE_METATYPE(zelFrameProps)
// The layout rows name only the properties they set.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

class tst_Frame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QStringLiteral("en_US"))); } // US dates typed

    void layout_data()
    {
        // labels: prefix and suffix text, "|" between, a shown label in brackets
        zelColumns<zelFrameProps, int, QString, QRect, int>(
            {"props", "inner", "labels", "input", "suffixLeft"});
        // input: its left edge and width; it fills the height
        auto row = [](const char *name, const zelFrameProps &p, const char *labels, int inputLeft,
                      int inputWidth, int suffixLeft, int inner = 3000) {
            QTest::newRow(name) << p << inner << labels << QRect(inputLeft, 0, inputWidth, 315)
                                << suffixLeft;
        };
        row("bare", {}, "|", 0, 3000, 3000);
        row("empty prefix with colon hides label", {.PrefixColon = true}, "|", 0, 3000, 3000);
        row("prefix with colon", {.Prefix = "Name", .PrefixColon = true}, "[Name:]|", 560, 2440,
            3000);
        row("fixed empty prefix still visible", {.PrefixWidth = 1200}, "[]|", 1260, 1740, 3000);
        row("suffix with parens", {.Suffix = "m", .SuffixParens = true}, "|[(m)]", 0, 2640, 2700);
        row("empty suffix with parens adds nothing", {.SuffixParens = true}, "|", 0, 3000, 3000);
        row("fixed suffix width", {.Prefix = "A", .Suffix = "B", .SuffixWidth = 500}, "[A]|[B]",
            160, 2280, 2500);
        row("input never below 400", {.PrefixWidth = 900}, "[]|", 960, 400, 1000, 1000);
        row("both labels squeeze to 400", {.Prefix = "Prefix", .Suffix = "Suffix"},
            "[Prefix]|[Suffix]", 660, 400, 400, 1000);
    }

    void layout()
    {
        const auto [props, inner] = zelFetch<zelFrameProps, int>({"props", "inner"});
        const zelFrameLayout l = zelLayoutFrame(props, inner, fixedWidth);
        auto shown = [](const QString &text, bool on) { return on ? '[' + text + ']' : text; };
        QTEST(shown(l.PrefixText, l.PrefixVisible) + '|' + shown(l.SuffixText, l.SuffixVisible),
              "labels");
        QTEST(l.InputRect, "input");
        QTEST(l.SuffixRect.left(), "suffixLeft");
        QCOMPARE(l.PrefixRect.topLeft(), QPoint(0, 60));
        QCOMPARE(l.SuffixRect.top(), 60);
        QCOMPARE(l.SuffixRect.right() + 1, inner); // flush with the right edge
    }

    void labelsAtTwoScreens_data()
    {
        zelColumns<QString, double>({"control", "twipsPerPixel"});
        for (const char *c : {"zelInputBox", "zelDateTime"})
            for (const double tpp : {15.0, 10.0})
                QTest::addRow("%s at %g", c, tpp) << c << tpp;
    }

    // Each edge within half a pixel of its place in twips.
    void labelsAtTwoScreens()
    {
        const auto [control, twipsPerPixel] =
            zelFetch<QString, double>({"control", "twipsPerPixel"});
        zelTestScope scope;
        scope.fake().twipsPerPixel = twipsPerPixel;
        Field x(control);
        x.f->SetPrefixWidth(1200);
        x.f->SetSuffix(QStringLiteral("m"));
        x.f->SetSuffixWidth(500);
        x.f->resize(int(3000 / twipsPerPixel), 100);
        x.form.show();
        auto at = [&](int px, int twips) {
            return std::abs(px * twipsPerPixel - twips) <= twipsPerPixel / 2;
        };
        // The date field's picker fills the input area; its text box leaves
        // the drop-down button free.
        auto *area = x.f->findChild<QWidget *>(QStringLiteral("pvDate"));
        const QRect input = area ? area->geometry() : x.txt->geometry();
        auto *prefix = x.f->findChild<QLabel *>(QStringLiteral("lblPrefix"));
        auto *suffix = x.f->findChild<QLabel *>(QStringLiteral("lblSuffix"));
        QVERIFY(at(x.f->height(), 315) && at(input.height(), 315));
        QVERIFY(at(input.left(), 1260) && at(input.right() + 1, 2440));
        QCOMPARE(x.txt->geometry().topLeft(), input.topLeft());
        QVERIFY(at(suffix->x(), 2500) && at(suffix->y(), 60) &&
                at(suffix->geometry().right() + 1, 3000));
        x.f->resize(x.f->width(), 40);
        QVERIFY(at(x.f->height(), 315));

        x.f->SetPrefixWidth(0);
        x.f->SetPrefix(QStringLiteral("Name"));
        x.f->SetPrefixColon(true);
        x.f->SetSuffixParens(true);
        QCOMPARE(prefix->text() + suffix->text(), "Name:(m)");
        // The input starts 60 twips right of the prefix label.
        const int gap = x.txt->x() - prefix->geometry().right() - 1;
        QVERIFY2(std::abs(gap * twipsPerPixel - 60) <= twipsPerPixel,
                 qPrintable(QString::number(gap)));
        x.f->SetPrefix(QString());
        QVERIFY(prefix->isHidden());
        QCOMPARE(x.txt->x(), 0);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void dataTypeRefusal_data()
    {
        // message: "Limited Data Type"
        zelColumns<QString, int, int, QString>({"control", "type", "stored", "message"});
        const char *box = "This control now only supports numbers and strings";
        const char *date = "This control only supports dates";
        auto row = [](const char *control, int type, int stored, const char *message) {
            QTest::addRow("%s %d", control, type) << control << type << stored << message;
        };
        row("zelInputBox", 7, 8, box);
        row("zelInputBox", 11, 8, box);
        row("zelInputBox", 2, 2, "");
        row("zelDateTime", 7, 7, "");
        row("zelDateTime", 5, 8, date);
        row("zelDateTime", 8, 8, date);
    }

    void dataTypeRefusal()
    {
        const auto [control, type, message] =
            zelFetch<QString, int, QString>({"control", "type", "message"});
        zelTestScope scope;
        Field x(control);
        QSignalSpy changed(x.f, SIGNAL(Changed()));
        QSignalSpy marked(x.f, &zelLabelledField::PropertyChanged);
        x.set("DataType", type);
        QTEST(zel::GetProperty(x.f, QStringLiteral("DataType")).toInt(), "stored");
        QStringList shown;
        for (const auto &m : std::as_const(scope.fake().messages))
            shown << m.title + ": " + m.text;
        QCOMPARE(shown,
                 message.isEmpty() ? QStringList() : QStringList{"Limited Data Type: " + message});
        QCOMPARE(changed.count(), 1);
        QCOMPARE(marked, (QList<QVariantList>{{QStringLiteral("DataType")}}));
        // Numbers stand on the right.
        QCOMPARE(bool(x.txt->alignment() & Qt::AlignRight), type == 2);
    }

    void hostHearsEachKeyFirst_data()
    {
        // type: DataType; 0: the date field's time picker
        // host: "ab" turns a into b, "x" cancels x
        // tabs: Enter as Tab
        zelColumns<QString, int, QString, QString, QString, int>(
            {"control", "type", "keys", "host", "text", "tabs"});
        auto row = [](const char *name, const char *control, int type, const char *keys,
                      const char *host, const char *text, int tabs = 0) {
            QTest::newRow(name) << control << type << keys << host << text << tabs;
        };
        row("box: keys changed and cancelled", "zelInputBox", 8, "axc", "ab,x", "bc");
        row("box: a changed key is still checked", "zelInputBox", 5, "12", "1a", "2");
        row("date: a digit cancelled", "zelDateTime", 7, "15/2", "5", "1/2");
        row("date: letter changed to a separator", "zelDateTime", 7, "12x3", "x-", "12/3");
        row("date: digit changed to a letter is refused", "zelDateTime", 7, "123", "2q", "13");
        row("date: Enter cancelled stays", "zelDateTime", 7, "1\r", "\r", "1");
        row("date: Enter in the time picker moves on", "zelDateTime", 0, "\r", "", "", 1);
    }

    void hostHearsEachKeyFirst()
    {
        const auto [control, type, keys, host, tabs] =
            zelFetch<QString, int, QString, QString, int>(
                {"control", "type", "keys", "host", "tabs"});
        zelTestScope scope;
        scope.fake().moveFocusOnTab = false;
        Field x(control);
        x.set(type ? "DataType" : "TimeInput", type ? QVariant(type) : QVariant(true));
        x.set("Text", QString());
        QString heard;
        auto hear = [&](qint16 &key) {
            heard += QChar(key);
            for (const QString &rule : host.split(u',', Qt::SkipEmptyParts))
                if (key == rule.at(0).unicode())
                    key = rule.size() > 1 ? qint16(rule.at(1).unicode()) : 0;
        };
        if (auto *box = qobject_cast<zelInputBox *>(x.f))
            connect(box, &zelInputBox::KeyPress, this, hear);
        else
            connect(qobject_cast<zelDateTime *>(x.f), &zelDateTime::KeyPress, this, hear);
        QWidget *target = type ? x.txt : x.f->findChild<QWidget *>(QStringLiteral("pvDate"));
        QTest::keyClicks(target, keys);
        QCOMPARE(heard, keys);
        QTEST(zel::GetProperty(x.f, QStringLiteral("Text")).toString(), "text");
        QCOMPARE(scope.fake().tabsFrom.size(), tabs);
        if (tabs)
            QCOMPARE(scope.fake().tabsFrom.at(0).data(), target);
    }

    void entrySelectsAll_data() { addControls(); }

    void entrySelectsAll()
    {
        QFETCH(QString, control);
        zelTestScope scope;
        Field x(control);
        x.set("DataType", control == "zelInputBox" ? 8 : 7);
        x.set("Text", QStringLiteral("1/2/1950"));
        QVERIFY(zelShowActive(x.form));
        x.other->setFocus();
        x.txt->setFocus(Qt::TabFocusReason);
        QTRY_COMPARE(x.txt->selectedText(), QStringLiteral("1/2/1950"));
        // Not in a form designer.
        x.other->setFocus();
        x.txt->deselect();
        zel::SetUserMode(&x.form, false);
        x.txt->setFocus(Qt::MouseFocusReason);
        QTRY_VERIFY(x.txt->hasFocus());
        QTest::qWait(20);
        QCOMPARE(x.txt->selectedText(), QString());
    }

    void disabledColours_data() { addControls(); }

    void disabledColours()
    {
        QFETCH(QString, control);
        zelTestScope scope;
        Field x(control);
        for (const bool enabled : {false, true}) {
            x.set("Enabled", enabled);
            QCOMPARE(x.txt->isEnabled(), enabled);
            if (auto *picker = x.f->findChild<QWidget *>(QStringLiteral("pvDate")))
                QCOMPARE(picker->isEnabled(), enabled);
            const QPalette p = x.txt->palette();
            QCOMPARE(p.color(QPalette::Base),
                     zel::ToQColor(enabled ? zel::SysWindowBackground : zel::SysButtonFace));
            QCOMPARE(p.color(QPalette::Text),
                     zel::ToQColor(enabled ? zel::SysWindowText : zel::SysGrayText));
        }
    }

    void failedLayoutLeavesBusyFlagSet()
    {
        zelTestScope scope;
        Field x(QStringLiteral("zelInputBox"));
        x.f->SetPrefix(QString(100000, QLatin1Char('W'))); // far wider than 16 bits of twips
        QVERIFY(x.f->LayoutBusy());
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelInputBox.UserControl_Resize")), 1);
        // Later resizes do nothing, the field still takes text.
        x.f->resize(300, 21);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelInputBox.UserControl_Resize")), 1);
        x.set("DataType", 8);
        x.set("Text", QStringLiteral("still works"));
        QCOMPARE(x.txt->text(), "still works");
    }

    void enterMovesFocusWhenAsked_data()
    {
        zelColumns<QString, bool>({"control", "sendKeysTab"});
        for (const char *c : {"zelInputBox", "zelDateTime"})
            for (const bool on : {true, false})
                QTest::addRow("%s %s", c, on ? "on" : "off") << c << on;
    }

    void enterMovesFocusWhenAsked()
    {
        const auto [control, sendKeysTab] = zelFetch<QString, bool>({"control", "sendKeysTab"});
        zelTestScope scope;
        Field x(control);
        x.f->SetSendKeysTab(sendKeysTab);
        QVERIFY(zelShowActive(x.form));
        x.txt->setFocus();
        QTest::keyClick(x.txt, Qt::Key_Return);
        QCOMPARE(scope.fake().tabsFrom.size(), sendKeysTab ? 1 : 0);
        QCOMPARE(QApplication::focusWidget() == x.other, sendKeysTab);
    }
};

QTEST_MAIN(tst_Frame)
#include "tst_frame.moc"
