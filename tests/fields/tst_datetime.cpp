#include "zelFakePlatform.h"
#include "zelTestData.h"

#include "fields/zelDateTime.h"
#include "platform/zelLateBinding.h"

#include <QCalendarWidget>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QMetaObject>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTest>

#include <memory>

namespace {

const QDateTime zeroDate(QDate(1899, 12, 30), QTime(0, 0));

QDateTime day(int y, int m, int d)
{
    return QDateTime(QDate(y, m, d), QTime(0, 0));
}

QDateTime onZeroDay(int h, int m)
{
    return QDateTime(QDate(1899, 12, 30), QTime(h, m));
}

std::unique_ptr<zelDateTime> makeField(bool timeInput = false)
{
    auto f = std::make_unique<zelDateTime>();
    f->resize(200, 21);
    if (timeInput)
        f->SetTimeInput(true);
    return f;
}

QLineEdit *textBox(zelDateTime &f)
{
    return f.findChild<QLineEdit *>(QStringLiteral("txtInput"));
}

QDateTimeEdit *picker(zelDateTime &f)
{
    return f.findChild<QDateTimeEdit *>(QStringLiteral("pvDate"));
}

void useLocale(const QString &name)
{
    QLocale::setDefault(name == QLatin1String("C") ? QLocale::c() : QLocale(name));
}

} // namespace

class tst_DateTime : public QObject
{
    Q_OBJECT

private slots:
    void init() { useLocale(QStringLiteral("en_US")); }

    void valueSetter_data()
    {
        // text: the field showed "3/4/2021" before
        // value: invalid: not checked
        // pickerAt: "now", "today", or "" for the value's day
        zelColumns<bool, QVariant, QString, QDateTime, QString>(
            {"timeInput", "input", "text", "value", "pickerAt"});
        auto row = [](const char *name, bool time, const QVariant &input, const char *text,
                      const QDateTime &value, const char *pickerAt = "") {
            QTest::newRow(name) << time << input << QString(text) << value << QString(pickerAt);
        };
        const QVariant noDate(QMetaType(QMetaType::QDateTime));
        row("date: date and time", false, QDateTime(QDate(2020, 12, 31), QTime(15, 30)),
            "12/31/2020", day(2020, 12, 31));
        row("date: date value", false, 18265.25, "1/2/1950", day(1950, 1, 2));
        row("date: text", false, "1950-01-02", "1/2/1950", day(1950, 1, 2));
        row("date: 1 Jan 1950", false, QDate(1950, 1, 1), "", zeroDate, "today");
        row("date: no date", false, "soon", "", zeroDate, "today");
        row("date: empty", false, QVariant(), "", zeroDate, "now");
        row("time: 14:35:50 on a day", true, QDateTime(QDate(2024, 5, 6), QTime(14, 35, 50)),
            "3/4/2021", onZeroDay(14, 35));
        row("time: last millisecond", true, QTime(23, 59, 59, 999), "3/4/2021", onZeroDay(23, 59));
        row("time: date value", true, 0.75, "3/4/2021", onZeroDay(18, 0));
        row("time: before the zero day", true, -1.25, "3/4/2021", onZeroDay(6, 0));
        row("time: null date", true, noDate, "", QDateTime(), "now");
    }

    void valueSetter()
    {
        const auto [timeInput, input, value, pickerAt] =
            zelFetch<bool, QVariant, QDateTime, QString>(
                {"timeInput", "input", "value", "pickerAt"});
        zelTestScope scope;
        auto f = makeField();
        picker(*f)->setDateTime(QDateTime(QDate(1960, 6, 1), QTime(3, 0)));
        f->SetText(QStringLiteral("3/4/2021"));
        f->SetChanged(false);
        f->SetTimeInput(timeInput);
        QSignalSpy changed(f.get(), &zelDateTime::Changed);
        f->SetValue(input);
        QTEST(f->Text(), "text");
        if (value.isValid())
            QCOMPARE(f->Value().toDateTime(), value);
        const QDateTime shown = picker(*f)->dateTime();
        if (pickerAt == QLatin1String("now"))
            QVERIFY(qAbs(shown.secsTo(QDateTime::currentDateTime())) < 60);
        else if (pickerAt == QLatin1String("today"))
            QCOMPARE(shown.date(), QDate::currentDate());
        else if (!timeInput)
            QCOMPARE(shown.date(), value.date());
        // The control's own writes are no change by the user.
        QCOMPARE(changed.count(), 0);
        QCOMPARE(f->GetChanged(), false);
        // Written back, a value keeps its day or its minutes.
        if (value.isValid()) {
            f->SetValue(f->Value());
            QCOMPARE(f->Value().toDateTime(), value);
        }
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void pickerChangeRaisesChangedThenWritesText()
    {
        zelTestScope scope;
        auto f = makeField();
        f->SetText(QStringLiteral("1/2/1950"));
        QStringList seen;
        connect(f.get(), &zelDateTime::Changed, f.get(), [&] {
            seen << f->Text()
                 << (f->GetChanged() ? QStringLiteral("flag") : QStringLiteral("no flag"));
        });
        picker(*f)->setDateTime(QDateTime(QDate(2021, 3, 4), QTime(10, 0)));
        // Raised with the flag set, before the text box shows the new day.
        QCOMPARE(seen, QStringList({QStringLiteral("1/2/1950"), QStringLiteral("flag")}));
        QCOMPARE(f->Text(), "3/4/2021");
        QCOMPARE(f->Value().toDateTime(), day(2021, 3, 4));
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void typingRule_data()
    {
        // cursor: where the keys go into start; -1 = over all of it
        // value: invalid: not checked
        zelColumns<QString, QString, int, QString, QString, QDateTime>(
            {"locale", "start", "cursor", "keys", "text", "value"});
        auto row = [](const char *name, const char *locale, const char *keys, const char *text,
                      const char *start = "", int cursor = 0, const QDateTime &value = {}) {
            QTest::newRow(name) << QString(locale) << QString(start) << cursor << QString(keys)
                                << QString(text) << value;
        };
        const char *us = "en_US";
        row("full date", us, "1/2/1950", "1/2/1950");
        row("dash and blank become the separator", us, "1-2 1950", "1/2/1950");
        row("separator at the start", us, "/1/2", "1/2");
        row("separator behind a separator", us, "1//2", "1/2");
        row("third digit opens the next group", us, "123", "12/3");
        row("digits only", us, "12311950", "12/31/1950");
        row("year takes four digits", us, "1/2/19501", "1/2/1950");
        row("third separator", us, "1/2/3/4", "1/2/34");
        row("letters and colons", us, "a1b/c2:", "1/2");
        row("wide characters", us,
            "1\uac00/\ufffd\U0001F600"
            "2",
            "1/2");
        row("German", "de_DE", "1/2/1950", "1.2.1950");
        row("Swedish year first", "sv_SE", "20201231", "2020-12-31");
        row("C locale types ISO", "C", "19500102", "1950-01-02");
        row("full text takes no more keys", us, "1", "12/31/2020", "12/31/2020", 10);
        row("a selection is typed over", us, "7/4/2021", "7/4/2021", "12/31/2020", -1);
        row("a digit mid-text within the limit", us, "3", "13/2/1950", "1/2/1950", 1);
        row("a group keeps its limit mid-text", us, "4", "13/2/1950", "13/2/1950", 1);
        row("a dot mid-text becomes the separator", us, ".", "12/31", "1231", 2);
        row("no separator beside one mid-text", us, "/", "12/31", "12/31", 3);
        // The value read from the text: 1 January 1950 and before is no date.
        row("1 Jan 1950 is no date", us, "1/1/1950", "1/1/1950", "", 0, zeroDate);
        row("2 Jan 1950", us, "1/2/1950", "1/2/1950", "", 0, day(1950, 1, 2));
        row("before 1950", us, "12/31/1949", "12/31/1949", "", 0, zeroDate);
        row("empty", us, "", "", "", 0, zeroDate);
        row("C locale month name", "C", "", "2 Jan 1950", "2 Jan 1950", 0, day(1950, 1, 2));
    }

    void typingRule()
    {
        const auto [locale, start, cursor, keys] =
            zelFetch<QString, QString, int, QString>({"locale", "start", "cursor", "keys"});
        zelTestScope scope;
        useLocale(locale);
        auto f = makeField();
        f->SetText(start);
        if (cursor < 0)
            textBox(*f)->selectAll();
        else
            textBox(*f)->setCursorPosition(cursor);
        zelTypeKeys(textBox(*f), keys);
        QTEST(f->Text(), "text");
        QCOMPARE(scope.fake().beeps, 0);
        QFETCH(QDateTime, value);
        if (value.isValid())
            QCOMPARE(zel::GetProperty(f.get(), QStringLiteral("Value")).toDateTime(), value);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void pickerKeysReachTheHostWhoCanCancelThem()
    {
        zelTestScope scope;
        auto f = makeField(true);
        QStringList seen;
        connect(f.get(), &zelDateTime::KeyDown, f.get(), [&](qint16 &code, qint16 &shift) {
            seen << QStringLiteral("down %1 %2").arg(code).arg(shift);
        });
        connect(f.get(), &zelDateTime::KeyPress, f.get(),
                [&](qint16 &k) { seen << QStringLiteral("press %1").arg(k); });
        connect(f.get(), &zelDateTime::KeyUp, f.get(), [&](qint16 &code, qint16 &shift) {
            seen << QStringLiteral("up %1 %2").arg(code).arg(shift);
        });
        QTest::keyClick(picker(*f), Qt::Key_Up, Qt::ShiftModifier);
        QTest::keyClick(picker(*f), Qt::Key_5);
        QTest::keyClick(picker(*f), Qt::Key_F2, Qt::ControlModifier | Qt::AltModifier);
        // The modifier keys come down and up as keys of their own, as they do
        // for the classic controls.
        QCOMPARE(seen, QStringList({"down 16 1", "down 38 1", "up 38 1", "up 16 0", "down 53 0",
                                    "press 53", "up 53 0", "down 17 2", "down 18 6", "down 113 6",
                                    "up 113 6", "up 18 2", "up 17 0"}));

        // A key code set to 0 in KeyDown does nothing.
        f->SetValue(QTime(10, 0));
        // The section that Up steps must not depend on what the typing above
        // left current (that depends on the time of day the test runs at).
        picker(*f)->setCurrentSection(QDateTimeEdit::HourSection);
        QTest::keyClick(picker(*f), Qt::Key_Up);
        QCOMPARE(f->Value().toDateTime(), onZeroDay(11, 0));
        connect(f.get(), &zelDateTime::KeyDown, f.get(), [](qint16 &code, qint16 &) { code = 0; });
        QTest::keyClick(picker(*f), Qt::Key_Up);
        QCOMPARE(f->Value().toDateTime(), onZeroDay(11, 0));

        // The text box raises KeyPress only.
        seen.clear();
        f->SetTimeInput(false);
        QTest::keyClick(textBox(*f), Qt::Key_5);
        QCOMPARE(seen, QStringList({"press 53"}));
    }

    void textBoxLeavesDropDownButtonFree()
    {
        zelTestScope scope;
        auto f = makeField();
        f->SetPrefix(QStringLiteral("Stichtag"));
        f->SetPrefixWidth(1200);
        QLineEdit *txt = textBox(*f);
        QDateTimeEdit *pv = picker(*f);
        const int free = pv->geometry().right() - txt->geometry().right();
        QVERIFY2(free >= 8 && free <= 60, qPrintable(QString::number(free)));
        // What is left free is the picker's drop-down button.
        QStyleOptionComboBox opt;
        opt.initFrom(pv);
        opt.editable = true;
        opt.frame = true;
        opt.subControls = QStyle::SC_All;
        const QPoint inButton(pv->width() - free / 2, pv->height() / 2);
        QCOMPARE(pv->style()->hitTestComplexControl(QStyle::CC_ComboBox, &opt, inButton, pv),
                 QStyle::SC_ComboBoxArrow);
        QVERIFY(pv->calendarPopup());
        QCOMPARE(pv->displayFormat(), "MMM dd, yyyy");

        // In time mode the picker alone fills the input area, as an up-down editor
        // that takes a time on the zero day.
        const QRect inputArea = pv->geometry();
        f->SetTimeInput(true);
        QVERIFY(txt->isHidden());
        QVERIFY(!pv->calendarPopup());
        QCOMPARE(pv->displayFormat(), "hh:mm AP");
        QCOMPARE(pv->geometry(), inputArea);
        f->SetValue(QTime(8, 20));
        QCOMPARE(pv->date(), QDate(1899, 12, 30));
        f->SetTimeInput(false);
        QVERIFY(!txt->isHidden());
        QVERIFY(pv->calendarPopup());
    }

    void keyboardOpensCalendar_data()
    {
        zelColumns<int, int, bool>({"key", "modifiers", "opens"});
        QTest::newRow("F4") << int(Qt::Key_F4) << int(Qt::NoModifier) << true;
        QTest::newRow("Alt+Down") << int(Qt::Key_Down) << int(Qt::AltModifier) << true;
        QTest::newRow("Down alone") << int(Qt::Key_Down) << int(Qt::NoModifier) << false;
    }

    void keyboardOpensCalendar()
    {
        const auto [key, modifiers] = zelFetch<int, int>({"key", "modifiers"});
        zelTestScope scope;
        auto f = makeField();
        f->show();
        int keyDowns = 0;
        connect(f.get(), &zelDateTime::KeyDown, f.get(), [&](qint16 &, qint16 &) { ++keyDowns; });
        QTest::keyClick(textBox(*f), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        auto *calendar = picker(*f)->calendarWidget();
        QTEST(calendar && calendar->isVisible(), "opens");
        QCOMPARE(keyDowns, 0);
    }

    void frameKeysStoredWidths_data()
    {
        // written: invalid: refused with error 6, not written
        zelColumns<QString, int, QVariant>({"key", "value", "written"});
        QTest::newRow("PrefixAlignment 32-bit")
            << "PrefixAlignment" << 2 << QVariant::fromValue(qint32(2));
        QTest::newRow("SuffixAlignment 32-bit")
            << "SuffixAlignment" << 2 << QVariant::fromValue(qint32(2));
        QTest::newRow("Margin beyond 16 bits") << "Margin" << 40000 << QVariant();
    }

    void frameKeysStoredWidths()
    {
        const auto [key, value, written] =
            zelFetch<QString, int, QVariant>({"key", "value", "written"});
        zelTestScope scope;
        auto f = makeField();
        f->SetPrefix(QStringLiteral("Datum"));
        QVERIFY(zel::SetProperty(f.get(), key, value));
        zelMemoryPropertyBag bag;
        f->WriteProperties(bag);
        QCOMPARE(bag.Value(QStringLiteral("Prefix")).toString(), "Datum");
        QCOMPARE(bag.Value(key).metaType(), written.metaType());
        QCOMPARE(bag.Value(key), written);
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelDateTime.UserControl_WriteProperties")),
                 written.isValid() ? 0 : 1);
        QCOMPARE(zelCaptureLogger::errors.value(0).value(3).toInt(),
                 written.isValid() ? 0 : int(zelError::Overflow));
        auto g = makeField();
        g->ReadProperties(bag);
        QCOMPARE(zel::GetProperty(g.get(), key).toInt(), written.isValid() ? value : 60);
    }

    // What the store keeps beside the values: the calendar months are always
    // written and never read, a refused type loads without asking again, and
    // the load order decides the picker's state.
    void storeOddities()
    {
        zelTestScope scope;
        zelMemoryPropertyBag fresh;
        makeField()->WriteProperties(fresh);
        QCOMPARE(fresh.Count(), 1);
        QVERIFY(fresh.Contains(QStringLiteral("CalendarMonths")));
        auto f = makeField();
        f->SetEnabled(false);
        f->SetTimeInput(true);
        f->SetDataType(5); // refused: stored as 8
        zelMemoryPropertyBag bag;
        f->WriteProperties(bag);
        QCOMPARE(bag.Value(QStringLiteral("DataType")).toInt(), 8);
        bag.SetValue(QStringLiteral("CalendarMonths"), QStringLiteral("not a number"));
        auto g = makeField();
        g->ReadProperties(bag);
        QCOMPARE(g->DataType(), 8);
        QVERIFY(textBox(*g)->isHidden());
        // Enabled loads before TimeInput, and time mode switches the picker on.
        QVERIFY(!g->Enabled() && !textBox(*g)->isEnabled() && picker(*g)->isEnabled());
        QCOMPARE(scope.fake().messages.size(), 1);
        QCOMPARE(zelLoggedErrors(), 0);
    }
};

QTEST_MAIN(tst_DateTime)
#include "tst_datetime.moc"
