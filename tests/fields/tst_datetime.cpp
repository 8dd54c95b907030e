#include "zelFakePlatform.h"

#include "fields/zelDateTime.h"
#include "fields/zelOleDate.h"
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

    void oleDateScale_data();
    void oleDateScale();
    void oleDateOutOfRangeOverflows();
    void valueReadsTypedDate_data();
    void valueReadsTypedDate();
    void timeModeDropsSecondsAndDate_data();
    void timeModeDropsSecondsAndDate();
    void valueSetter_data();
    void valueSetter();
    void emptyValueClearsTextAndMovesPickerToNow_data();
    void emptyValueClearsTextAndMovesPickerToNow();
    void dataTypeRefusal_data();
    void dataTypeRefusal();
    void pickerChangeRaisesChangedThenWritesText();
    void enterMovesFocusOn_data();
    void enterMovesFocusOn();
    void hostKeyPressCanChangeOrCancel_data();
    void hostKeyPressCanChangeOrCancel();
    void typingRule_data();
    void typingRule();
    void typingOverSelectionReplacesIt();
    void pickerKeysRaiseKeyDownPressUp();
    void hostCancelsPickerKeyInKeyDown();
    void inputLayout_data();
    void inputLayout();
    void textBoxLeavesDropDownButtonFree();
    void timeModeHidesTextBox();
    void keyboardOpensCalendar_data();
    void keyboardOpensCalendar();
    void disabledColours();
    void focusEntrySelectsAll();
    void persistenceRoundTrip();
    void calendarMonthsWrittenNeverRead();
    void corruptBagIsLoggedAndRestLoads_data();
    void corruptBagIsLoggedAndRestLoads();
    void lateBoundProperties_data();
    void lateBoundProperties();
    void wrongTypeByNameIsLogged_data();
    void wrongTypeByNameIsLogged();
    void dispatchIds_data();
    void dispatchIds();
    void eventsByName();
};

void tst_DateTime::oleDateScale_data()
{
    QTest::addColumn<double>("ole");
    QTest::addColumn<QDateTime>("date");
    QTest::newRow("zero") << 0.0 << zeroDate;
    QTest::newRow("noon of the zero day") << 0.5 << onZeroDay(12, 0);
    QTest::newRow("next day") << 1.0 << day(1899, 12, 31);
    QTest::newRow("before zero counts time forward")
        << -1.25 << QDateTime(QDate(1899, 12, 29), QTime(6, 0));
    QTest::newRow("1 Jan 1950") << 18264.0 << day(1950, 1, 1);
    QTest::newRow("2 Jan 1950 18:00") << 18265.75 << QDateTime(QDate(1950, 1, 2), QTime(18, 0));
    QTest::newRow("31 Dec 2020") << 44196.0 << day(2020, 12, 31);
}

void tst_DateTime::oleDateScale()
{
    QFETCH(double, ole);
    QFETCH(QDateTime, date);
    QCOMPARE(zel::OleToDateTime(ole), date);
    QCOMPARE(zel::DateTimeToOle(date), ole);
    QCOMPARE(zel::ToDateTime(ole), date);
}

void tst_DateTime::oleDateOutOfRangeOverflows()
{
    for (double d : {3e6, -7e5, std::numeric_limits<double>::quiet_NaN()}) {
        try {
            zel::OleToDateTime(d);
            QFAIL("no error for an absurd date value");
        } catch (const zelError &e) {
            QCOMPARE(e.Number(), zelError::Overflow);
        }
    }
}

void tst_DateTime::valueReadsTypedDate_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDateTime>("value");
    const QString us = QStringLiteral("en_US");
    const QString de = QStringLiteral("de_DE");
    QTest::newRow("1 Jan 1950 is not after itself") << us << "1/1/1950" << zeroDate;
    QTest::newRow("2 Jan 1950") << us << "1/2/1950" << day(1950, 1, 2);
    QTest::newRow("leading zeros") << us << "01/02/1950" << day(1950, 1, 2);
    QTest::newRow("dashes as separators") << us << "1-2-1950" << day(1950, 1, 2);
    QTest::newRow("blanks as separators") << us << "1 2 1950" << day(1950, 1, 2);
    QTest::newRow("two-digit year 50") << us << "1/2/50" << day(1950, 1, 2);
    QTest::newRow("two-digit year 29") << us << "1/2/29" << day(2029, 1, 2);
    QTest::newRow("ISO 2 Jan 1950") << us << "1950-01-02" << day(1950, 1, 2);
    QTest::newRow("ISO 1 Jan 1950") << us << "1950-01-01" << zeroDate;
    QTest::newRow("before 1950") << us << "12/31/1949" << zeroDate;
    QTest::newRow("31 February") << us << "2/31/2020" << zeroDate;
    QTest::newRow("day first in the US") << us << "31/02/2020" << zeroDate;
    QTest::newRow("nonsense digits") << us << "99/99/9999" << zeroDate;
    QTest::newRow("ISO 29 Feb leap year") << us << "2020-02-29" << day(2020, 2, 29);
    QTest::newRow("ISO 29 Feb other year") << us << "2021-02-29" << zeroDate;
    QTest::newRow("empty") << us << "" << zeroDate;
    QTest::newRow("letters") << us << "tomorrow" << zeroDate;
    QTest::newRow("two groups only day and month") << us << "12/" << zeroDate;
    QTest::newRow("German") << de << "2.1.1950" << day(1950, 1, 2);
    QTest::newRow("German zero padded") << de << "02.01.1950" << day(1950, 1, 2);
    QTest::newRow("German with slashes") << de << "1/2/1950" << day(1950, 2, 1);
    QTest::newRow("German 31 Feb") << de << "31.02.2020" << zeroDate;
    QTest::newRow("British") << "en_GB"
                             << "31/12/2020" << day(2020, 12, 31);
    QTest::newRow("Swedish year first") << "sv_SE"
                                        << "2020-12-31" << day(2020, 12, 31);
    QTest::newRow("C locale month name") << "C"
                                         << "2 Jan 1950" << day(1950, 1, 2);
}

void tst_DateTime::valueReadsTypedDate()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QFETCH(QDateTime, value);
    zelTestScope scope;
    useLocale(locale);
    auto f = makeField();
    f->SetText(text);
    QCOMPARE(f->Value().toDateTime(), value);
    QCOMPARE(zel::GetProperty(f.get(), QStringLiteral("Value")).toDateTime(), value);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_DateTime::timeModeDropsSecondsAndDate_data()
{
    QTest::addColumn<QDateTime>("pickerValue");
    QTest::addColumn<QDateTime>("value");
    QTest::newRow("14:35:50 on a day")
        << QDateTime(QDate(2024, 5, 6), QTime(14, 35, 50)) << onZeroDay(14, 35);
    QTest::newRow("just after midnight")
        << QDateTime(QDate(2001, 1, 1), QTime(0, 0, 59)) << onZeroDay(0, 0);
    QTest::newRow("last minute") << QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59, 999))
                                 << onZeroDay(23, 59);
    QTest::newRow("already on the zero day")
        << QDateTime(QDate(1899, 12, 30), QTime(7, 5, 1)) << onZeroDay(7, 5);
}

void tst_DateTime::timeModeDropsSecondsAndDate()
{
    QFETCH(QDateTime, pickerValue);
    QFETCH(QDateTime, value);
    zelTestScope scope;
    auto f = makeField(true);
    picker(*f)->setDateTime(pickerValue);
    QCOMPARE(f->Value().toDateTime(), value);
    // Written back, the value keeps its minutes.
    f->SetValue(f->Value());
    QCOMPARE(f->Value().toDateTime(), value);
}

void tst_DateTime::valueSetter_data()
{
    QTest::addColumn<bool>("timeInput");
    QTest::addColumn<QVariant>("input");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDateTime>("value");
    QTest::newRow("date: date and time")
        << false << QVariant(QDateTime(QDate(2020, 12, 31), QTime(15, 30))) << "12/31/2020"
        << day(2020, 12, 31);
    QTest::newRow("date: QDate") << false << QVariant(QDate(1950, 1, 2)) << "1/2/1950"
                                 << day(1950, 1, 2);
    QTest::newRow("date: date value")
        << false << QVariant(18265.25) << "1/2/1950" << day(1950, 1, 2);
    QTest::newRow("date: text") << false << QVariant(QStringLiteral("1950-01-02")) << "1/2/1950"
                                << day(1950, 1, 2);
    QTest::newRow("date: 1 Jan 1950") << false << QVariant(QDate(1950, 1, 1)) << "" << zeroDate;
    QTest::newRow("date: zero") << false << QVariant(0) << "" << zeroDate;
    QTest::newRow("date: no date") << false << QVariant(QStringLiteral("soon")) << "" << zeroDate;
    QTest::newRow("time: QTime") << true << QVariant(QTime(9, 15, 30)) << "" << onZeroDay(9, 15);
    QTest::newRow("time: date and time")
        << true << QVariant(QDateTime(QDate(2020, 5, 6), QTime(18, 45))) << "" << onZeroDay(18, 45);
    QTest::newRow("time: text") << true << QVariant(QStringLiteral("14:35")) << ""
                                << onZeroDay(14, 35);
    QTest::newRow("time: date value") << true << QVariant(0.75) << "" << onZeroDay(18, 0);
}

void tst_DateTime::valueSetter()
{
    QFETCH(bool, timeInput);
    QFETCH(QVariant, input);
    QFETCH(QString, text);
    QFETCH(QDateTime, value);
    zelTestScope scope;
    auto f = makeField(timeInput);
    QSignalSpy changed(f.get(), &zelDateTime::Changed);
    f->SetValue(input);
    QCOMPARE(f->Text(), text);
    QCOMPARE(f->Value().toDateTime(), value);
    // The control's own writes are no change by the user.
    QCOMPARE(changed.count(), 0);
    QCOMPARE(f->GetChanged(), false);
    if (!timeInput) {
        const QDate expected = text.isEmpty() ? QDate::currentDate() : value.date();
        QCOMPARE(picker(*f)->date(), expected);
    }
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_DateTime::emptyValueClearsTextAndMovesPickerToNow_data()
{
    QTest::addColumn<bool>("timeInput");
    QTest::addColumn<QVariant>("empty");
    QTest::newRow("date mode, invalid") << false << QVariant();
    QTest::newRow("date mode, blank text") << false << QVariant(QStringLiteral("  "));
    QTest::newRow("time mode, invalid") << true << QVariant();
    QTest::newRow("time mode, null date") << true << QVariant(QMetaType(QMetaType::QDateTime));
}

void tst_DateTime::emptyValueClearsTextAndMovesPickerToNow()
{
    QFETCH(bool, timeInput);
    QFETCH(QVariant, empty);
    zelTestScope scope;
    auto f = makeField();
    f->SetText(QStringLiteral("1/2/1950"));
    picker(*f)->setDateTime(QDateTime(QDate(1960, 6, 1), QTime(3, 0)));
    f->SetTimeInput(timeInput);
    f->SetValue(empty);
    QCOMPARE(f->Text(), QString());
    QVERIFY(qAbs(picker(*f)->dateTime().secsTo(QDateTime::currentDateTime())) < 60);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_DateTime::dataTypeRefusal_data()
{
    QTest::addColumn<QVariant>("type");
    QTest::addColumn<int>("stored");
    QTest::addColumn<bool>("refused");
    QTest::newRow("date") << QVariant(7) << 7 << false;
    QTest::newRow("double") << QVariant(5) << 8 << true;
    QTest::newRow("string") << QVariant(8) << 8 << true;
    QTest::newRow("date as text") << QVariant(QStringLiteral("7")) << 7 << false;
}

void tst_DateTime::dataTypeRefusal()
{
    QFETCH(QVariant, type);
    QFETCH(int, stored);
    QFETCH(bool, refused);
    zelTestScope scope;
    auto f = makeField();
    QSignalSpy changed(f.get(), &zelDateTime::Changed);
    QSignalSpy marked(f.get(), &zelLabelledField::PropertyChanged);
    f->SetDataType(type);
    QCOMPARE(f->DataType(), stored);
    QCOMPARE(zel::GetProperty(f.get(), QStringLiteral("DataType")).toInt(), stored);
    if (refused) {
        QCOMPARE(scope.fake().messages.size(), 1);
        QCOMPARE(scope.fake().messages.at(0).text,
                 QStringLiteral("This control only supports dates"));
        QCOMPARE(scope.fake().messages.at(0).title, QStringLiteral("Limited Data Type"));
    } else {
        QCOMPARE(scope.fake().messages.size(), 0);
    }
    QCOMPARE(changed.count(), 1);
    QCOMPARE(marked.count(), 1);
    QCOMPARE(marked.at(0).at(0).toString(), QStringLiteral("DataType"));
}

void tst_DateTime::pickerChangeRaisesChangedThenWritesText()
{
    zelTestScope scope;
    auto f = makeField();
    f->SetText(QStringLiteral("1/2/1950"));
    QStringList seen;
    connect(f.get(), &zelDateTime::Changed, f.get(), [&] {
        seen << f->Text() << (f->GetChanged() ? QStringLiteral("flag") : QStringLiteral("no flag"));
    });
    picker(*f)->setDateTime(QDateTime(QDate(2021, 3, 4), QTime(10, 0)));
    // Raised with the flag set, before the text box shows the new day.
    QCOMPARE(seen, QStringList({QStringLiteral("1/2/1950"), QStringLiteral("flag")}));
    QCOMPARE(f->Text(), QStringLiteral("3/4/2021"));
    QCOMPARE(f->Value().toDateTime(), day(2021, 3, 4));
    QCOMPARE(zel::GetProperty(f.get(), QStringLiteral("Changed")).toBool(), true);
    QVERIFY(zel::SetProperty(f.get(), QStringLiteral("Changed"), false));
    QCOMPARE(f->GetChanged(), false);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_DateTime::enterMovesFocusOn_data()
{
    QTest::addColumn<bool>("timeInput");
    QTest::addColumn<bool>("sendKeysTab");
    QTest::newRow("date, tab") << false << true;
    QTest::newRow("date, no tab") << false << false;
    QTest::newRow("time, tab") << true << true;
    QTest::newRow("time, no tab") << true << false;
}

void tst_DateTime::enterMovesFocusOn()
{
    QFETCH(bool, timeInput);
    QFETCH(bool, sendKeysTab);
    zelTestScope scope;
    scope.fake().moveFocusOnTab = false;
    auto f = makeField(timeInput);
    f->SetSendKeysTab(sendKeysTab);
    QList<int> pressed;
    connect(f.get(), &zelDateTime::KeyPress, f.get(), [&](qint16 &k) { pressed << k; });
    QWidget *target = timeInput ? static_cast<QWidget *>(picker(*f)) : textBox(*f);
    QTest::keyClick(target, Qt::Key_Return);
    // The host hears the Enter first, whatever becomes of it.
    QCOMPARE(pressed, QList<int>({13}));
    if (sendKeysTab) {
        QCOMPARE(scope.fake().tabsFrom.size(), 1);
        QCOMPARE(scope.fake().tabsFrom.at(0).data(), target);
    } else {
        QCOMPARE(scope.fake().tabsFrom.size(), 0);
    }
}

void tst_DateTime::hostKeyPressCanChangeOrCancel_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QChar>("from");
    QTest::addColumn<QChar>("to"); // '\0' cancels
    QTest::addColumn<QString>("text");
    QTest::newRow("cancel a digit") << "15/2" << QChar('5') << QChar() << "1/2";
    QTest::newRow("letter changed to a digit") << "1x/2" << QChar('x') << QChar('7') << "17/2";
    QTest::newRow("letter changed to a separator") << "12x3" << QChar('x') << QChar('-') << "12/3";
    QTest::newRow("digit changed to a letter is refused")
        << "123" << QChar('2') << QChar('q') << "13";
    QTest::newRow("cancel the separator") << "1/2" << QChar('/') << QChar() << "12";
}

void tst_DateTime::hostKeyPressCanChangeOrCancel()
{
    QFETCH(QString, keys);
    QFETCH(QChar, from);
    QFETCH(QChar, to);
    QFETCH(QString, text);
    zelTestScope scope;
    auto f = makeField();
    int raised = 0;
    connect(f.get(), &zelDateTime::KeyPress, f.get(), [&](qint16 &k) {
        ++raised;
        if (k == from.unicode())
            k = qint16(to.unicode());
    });
    QTest::keyClicks(textBox(*f), keys);
    QCOMPARE(f->Text(), text);
    QCOMPARE(raised, int(keys.size()));
}

void tst_DateTime::typingRule_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    const QString us = QStringLiteral("en_US");
    QTest::newRow("full date") << us << "1/2/1950"
                               << "1/2/1950";
    QTest::newRow("dash and dot become the separator") << us << "1-2.1950"
                                                       << "1/2/1950";
    QTest::newRow("blank becomes the separator") << us << "1 2 1950"
                                                 << "1/2/1950";
    QTest::newRow("separator at the start") << us << "/1/2"
                                            << "1/2";
    QTest::newRow("separator behind a separator") << us << "1//2"
                                                  << "1/2";
    QTest::newRow("third digit opens the next group") << us << "123"
                                                      << "12/3";
    QTest::newRow("digits only") << us << "12311950"
                                 << "12/31/1950";
    QTest::newRow("year takes four digits") << us << "1/2/19501"
                                            << "1/2/1950";
    QTest::newRow("third separator") << us << "1/2/3/4"
                                     << "1/2/34";
    QTest::newRow("letters and colons") << us << "a1b/c2:"
                                        << "1/2";
    QTest::newRow("ten characters at most") << us << "12/31/19501"
                                            << "12/31/1950";
    QTest::newRow("German") << "de_DE"
                            << "1/2/1950"
                            << "1.2.1950";
    QTest::newRow("German digits only") << "de_DE"
                                        << "02011950"
                                        << "02.01.1950";
    QTest::newRow("Swedish year first") << "sv_SE"
                                        << "20201231"
                                        << "2020-12-31";
    QTest::newRow("Swedish short groups") << "sv_SE"
                                          << "2020/1/2"
                                          << "2020-1-2";
    QTest::newRow("C locale types ISO") << "C"
                                        << "19500102"
                                        << "1950-01-02";
}

void tst_DateTime::typingRule()
{
    QFETCH(QString, locale);
    QFETCH(QString, keys);
    QFETCH(QString, text);
    zelTestScope scope;
    useLocale(locale);
    auto f = makeField();
    QTest::keyClicks(textBox(*f), keys);
    QCOMPARE(f->Text(), text);
    QCOMPARE(scope.fake().beeps, 0);
}

void tst_DateTime::typingOverSelectionReplacesIt()
{
    zelTestScope scope;
    auto f = makeField();
    f->SetText(QStringLiteral("12/31/2020"));
    QLineEdit *txt = textBox(*f);
    // A full text takes no more keys, but a selection is typed over.
    txt->end(false);
    QTest::keyClicks(txt, QStringLiteral("1"));
    QCOMPARE(f->Text(), QStringLiteral("12/31/2020"));
    txt->selectAll();
    QTest::keyClicks(txt, QStringLiteral("7/4/2021"));
    QCOMPARE(f->Text(), QStringLiteral("7/4/2021"));
    QCOMPARE(f->Value().toDateTime(), day(2021, 7, 4));

    // In the middle of the text the groups keep their limits.
    const zelDateEntryRule rule = zelDateEntryRuleFor();
    QCOMPARE(zelDateTypedText(QStringLiteral("1/2/1950"), 1, 0, QLatin1Char('3'), rule),
             QStringLiteral("3"));
    QCOMPARE(zelDateTypedText(QStringLiteral("13/2/1950"), 1, 0, QLatin1Char('4'), rule),
             QString());
    QCOMPARE(zelDateTypedText(QStringLiteral("1231"), 2, 0, QLatin1Char('.'), rule),
             QStringLiteral("/"));
    QCOMPARE(zelDateTypedText(QStringLiteral("12/31"), 2, 0, QLatin1Char('/'), rule), QString());
    QCOMPARE(zelDateTypedText(QStringLiteral("12/31"), 3, 0, QLatin1Char('/'), rule), QString());
}

void tst_DateTime::pickerKeysRaiseKeyDownPressUp()
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
    // The text box raises KeyPress only.
    seen.clear();
    f->SetTimeInput(false);
    QTest::keyClick(textBox(*f), Qt::Key_5);
    QCOMPARE(seen, QStringList({"press 53"}));
}

void tst_DateTime::hostCancelsPickerKeyInKeyDown()
{
    zelTestScope scope;
    auto f = makeField(true);
    f->SetValue(QTime(10, 0));
    QTest::keyClick(picker(*f), Qt::Key_Up);
    QCOMPARE(f->Value().toDateTime(), onZeroDay(11, 0));
    connect(f.get(), &zelDateTime::KeyDown, f.get(), [](qint16 &code, qint16 &) {
        if (code == 38)
            code = 0;
    });
    QTest::keyClick(picker(*f), Qt::Key_Up);
    QCOMPARE(f->Value().toDateTime(), onZeroDay(11, 0));
}

void tst_DateTime::inputLayout_data()
{
    QTest::addColumn<QRect>("input");
    QTest::addColumn<bool>("timeInput");
    QTest::addColumn<int>("button");
    QTest::addColumn<QRect>("text");
    QTest::addColumn<bool>("textVisible");
    QTest::newRow("date") << QRect(1260, 0, 3000, 315) << false << 315 << QRect(1260, 0, 2685, 315)
                          << true;
    QTest::newRow("time") << QRect(1260, 0, 3000, 315) << true << 315 << QRect() << false;
    QTest::newRow("button wider than the input")
        << QRect(0, 0, 200, 315) << false << 400 << QRect(0, 0, 0, 315) << true;
    QTest::newRow("no button") << QRect(60, 0, 400, 315) << false << 0 << QRect(60, 0, 400, 315)
                               << true;
}

void tst_DateTime::inputLayout()
{
    QFETCH(QRect, input);
    QFETCH(bool, timeInput);
    QFETCH(int, button);
    QFETCH(QRect, text);
    QFETCH(bool, textVisible);
    const zelDateInputLayout l = zelLayoutDateInput(input, timeInput, button);
    QCOMPARE(l.PickerRect, input);
    QCOMPARE(l.TextRect, text);
    QCOMPARE(l.TextVisible, textVisible);
}

void tst_DateTime::textBoxLeavesDropDownButtonFree()
{
    zelTestScope scope;
    auto f = makeField();
    f->SetPrefix(QStringLiteral("Stichtag"));
    f->SetPrefixWidth(1200);
    QLineEdit *txt = textBox(*f);
    QDateTimeEdit *pv = picker(*f);
    QCOMPARE(pv->geometry().left(), zel::TwipsToPixels(1260));
    QCOMPARE(txt->geometry().left(), pv->geometry().left());
    QCOMPARE(txt->geometry().top(), pv->geometry().top());
    QCOMPARE(txt->height(), pv->height());
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
    QCOMPARE(pv->displayFormat(), QStringLiteral("MMM dd, yyyy"));
}

void tst_DateTime::timeModeHidesTextBox()
{
    zelTestScope scope;
    auto f = makeField();
    f->SetTimeInput(true);
    QDateTimeEdit *pv = picker(*f);
    QVERIFY(textBox(*f)->isHidden());
    QCOMPARE(pv->displayFormat(), QStringLiteral("hh:mm AP"));
    QVERIFY(!pv->calendarPopup());
    const QRect input = f->FrameLayout().InputRect;
    QCOMPARE(pv->width(), zel::TwipsToPixels(input.width()));
    QCOMPARE(pv->x(), zel::TwipsToPixels(input.x()));
    // The time editor can take a time on the zero day although its format
    // shows no date.
    f->SetValue(QTime(8, 20));
    QCOMPARE(pv->date(), QDate(1899, 12, 30));

    f->SetTimeInput(false);
    QVERIFY(!textBox(*f)->isHidden());
    QVERIFY(pv->calendarPopup());
    f->SetValue(QDate(2030, 6, 1));
    QCOMPARE(pv->date(), QDate(2030, 6, 1));
}

void tst_DateTime::keyboardOpensCalendar_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("opens");
    QTest::newRow("F4") << int(Qt::Key_F4) << int(Qt::NoModifier) << true;
    QTest::newRow("Alt+Down") << int(Qt::Key_Down) << int(Qt::AltModifier) << true;
    QTest::newRow("Down alone") << int(Qt::Key_Down) << int(Qt::NoModifier) << false;
}

void tst_DateTime::keyboardOpensCalendar()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, opens);
    zelTestScope scope;
    QWidget window;
    auto *f = new zelDateTime(&window);
    f->setGeometry(0, 0, 200, 21);
    window.show();
    int keyDowns = 0;
    connect(f, &zelDateTime::KeyDown, f, [&](qint16 &, qint16 &) { ++keyDowns; });
    QTest::keyClick(textBox(*f), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    auto *calendar = picker(*f)->calendarWidget();
    QCOMPARE(calendar && calendar->isVisible(), opens);
    QCOMPARE(keyDowns, 0);
}

void tst_DateTime::disabledColours()
{
    zelTestScope scope;
    auto f = makeField();
    QLineEdit *txt = textBox(*f);
    f->SetEnabled(false);
    QVERIFY(!txt->isEnabled());
    QVERIFY(!picker(*f)->isEnabled());
    QCOMPARE(txt->palette().color(QPalette::Base), zel::ToQColor(zel::SysButtonFace));
    QCOMPARE(txt->palette().color(QPalette::Text), zel::ToQColor(zel::SysGrayText));
    QCOMPARE(picker(*f)->palette().color(QPalette::Base), zel::ToQColor(zel::SysButtonFace));
    f->SetEnabled(true);
    QVERIFY(txt->isEnabled());
    QCOMPARE(txt->palette().color(QPalette::Base), zel::ToQColor(zel::SysWindowBackground));
    QCOMPARE(txt->palette().color(QPalette::Text), zel::ToQColor(zel::SysWindowText));
}

void tst_DateTime::focusEntrySelectsAll()
{
    zelTestScope scope;
    QWidget window;
    auto *f = new zelDateTime(&window);
    auto *other = new QLineEdit(&window);
    f->setGeometry(0, 0, 200, 21);
    other->setGeometry(0, 30, 100, 21);
    window.show();
    if (!QTest::qWaitForWindowActive(&window))
        QSKIP("the platform cannot activate windows");
    f->SetText(QStringLiteral("1/2/1950"));
    f->setFocus();
    QTRY_COMPARE(textBox(*f)->selectedText(), QStringLiteral("1/2/1950"));

    other->setFocus();
    textBox(*f)->deselect();
    zel::SetUserMode(f, false);
    f->setFocus();
    QTRY_VERIFY(textBox(*f)->hasFocus());
    QTest::qWait(20);
    QCOMPARE(textBox(*f)->selectedText(), QString());
}

void tst_DateTime::persistenceRoundTrip()
{
    zelTestScope scope;
    auto f = makeField();
    f->SetPrefix(QStringLiteral("Stichtag"));
    f->SetPrefixWidth(1200);
    f->SetPrefixColon(true);
    f->SetPrefixAlignment(0);
    f->SetPrefixBold(true);
    f->SetSuffix(QStringLiteral("TT.MM.JJJJ"));
    f->SetSuffixWidth(900);
    f->SetSuffixParens(true);
    f->SetSuffixAlignment(2);
    f->SetSuffixBold(true);
    f->SetWidth(2500);
    f->SetMargin(90);
    f->SetText(QStringLiteral("1/2/1950"));
    f->SetEnabled(false);
    f->SetSendKeysTab(false);
    f->SetTimeInput(true);
    f->SetDataType(5); // refused: stored as 8

    zelMemoryPropertyBag memory;
    f->WriteProperties(memory);
    zelJsonPropertyBag json;
    f->WriteProperties(json);
    QCOMPARE(memory.Value(QStringLiteral("DataType")).toInt(), 8);
    QCOMPARE(memory.Value(QStringLiteral("PrefixWidth")).toInt(), 1200);

    for (zelPropertyBag *bag :
         {static_cast<zelPropertyBag *>(&memory), static_cast<zelPropertyBag *>(&json)}) {
        auto g = makeField();
        g->ReadProperties(*bag);
        QCOMPARE(g->Prefix(), QStringLiteral("Stichtag"));
        QCOMPARE(g->PrefixWidth(), 1200);
        QCOMPARE(g->PrefixColon(), true);
        QCOMPARE(g->PrefixAlignment(), qint16(0));
        QCOMPARE(g->PrefixBold(), true);
        QCOMPARE(g->Suffix(), QStringLiteral("TT.MM.JJJJ"));
        QCOMPARE(g->SuffixWidth(), 900);
        QCOMPARE(g->SuffixParens(), true);
        QCOMPARE(g->SuffixAlignment(), qint16(2));
        QCOMPARE(g->SuffixBold(), true);
        QCOMPARE(g->Width(), qint16(2500));
        QCOMPARE(g->Margin(), 90);
        QCOMPARE(g->Text(), QStringLiteral("1/2/1950"));
        QCOMPARE(g->Enabled(), false);
        QCOMPARE(g->SendKeysTab(), false);
        QCOMPARE(g->TimeInput(), true);
        QVERIFY(textBox(*g)->isHidden());
        QCOMPARE(g->DataType(), 8);
    }
    // Loading a refused type asks nothing again.
    QCOMPARE(scope.fake().messages.size(), 1);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_DateTime::calendarMonthsWrittenNeverRead()
{
    zelTestScope scope;
    auto f = makeField();
    zelMemoryPropertyBag bag;
    f->WriteProperties(bag);
    // A new field stores nothing but the calendar months, which has no default.
    QCOMPARE(bag.Count(), 1);
    QVERIFY(bag.Contains(QStringLiteral("CalendarMonths")));

    zelMemoryPropertyBag odd;
    odd.SetValue(QStringLiteral("CalendarMonths"), QStringLiteral("not a number"));
    odd.SetValue(QStringLiteral("Prefix"), QStringLiteral("Datum"));
    auto g = makeField();
    g->ReadProperties(odd);
    QCOMPARE(g->Prefix(), QStringLiteral("Datum"));
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_DateTime::corruptBagIsLoggedAndRestLoads_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("loaded");
    QTest::newRow("PrefixWidth text") << "PrefixWidth" << QVariant("wide") << QVariant(0);
    QTest::newRow("PrefixWidth beyond 16 bits") << "PrefixWidth" << QVariant(40000) << QVariant(0);
    QTest::newRow("Margin beyond 16 bits") << "Margin" << QVariant(1e9) << QVariant(60);
    QTest::newRow("PrefixAlignment text") << "PrefixAlignment" << QVariant("left") << QVariant(1);
    QTest::newRow("Enabled maybe") << "Enabled" << QVariant("maybe") << QVariant(true);
    QTest::newRow("TimeInput maybe") << "TimeInput" << QVariant("maybe") << QVariant(false);
    QTest::newRow("DataType text") << "DataType" << QVariant("date") << QVariant(7);
    QTest::newRow("SendKeysTab list")
        << "SendKeysTab" << QVariant(QVariantList{1, 2}) << QVariant(true);
    QTest::newRow("Text map") << "Text" << QVariant(QVariantMap{{"a", 1}}) << QVariant("");
}

void tst_DateTime::corruptBagIsLoggedAndRestLoads()
{
    QFETCH(QString, key);
    QFETCH(QVariant, stored);
    QFETCH(QVariant, loaded);
    zelTestScope scope;
    zelMemoryPropertyBag bag;
    bag.SetValue(QStringLiteral("Prefix"), QStringLiteral("Datum"));
    bag.SetValue(QStringLiteral("Suffix"), QStringLiteral("Tag"));
    bag.SetValue(key, stored);
    auto f = makeField();
    f->ReadProperties(bag);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelDateTime.UserControl_ReadProperties")), 1);
    QCOMPARE(f->Prefix(), QStringLiteral("Datum"));
    QCOMPARE(f->Suffix(), QStringLiteral("Tag"));
    QVariant got = zel::GetProperty(f.get(), key);
    QVERIFY(got.convert(loaded.metaType()));
    QCOMPARE(got, loaded);
    QVERIFY(!f->LayoutBusy());
}

void tst_DateTime::lateBoundProperties_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("expected");
    auto row = [](const char *name, const QVariant &v, const QVariant &e) {
        QTest::newRow(name) << QString::fromLatin1(name) << v << e;
    };
    row("Prefix", "Datum", "Datum");
    row("PrefixAlignment", 2, 2);
    row("PrefixWidth", "1500", 1500);
    row("PrefixColon", true, true);
    row("PrefixBold", -1, true);
    row("Suffix", "Tag", "Tag");
    row("SuffixAlignment", 1, 1);
    row("SuffixWidth", 700, 700);
    row("SuffixParens", "True", true);
    row("SuffixBold", true, true);
    row("Margin", 120, 120);
    row("Width", 3000, 3000);
    row("SendKeysTab", false, false);
    row("Enabled", false, false);
    row("Text", "3/4/2021", "3/4/2021");
    row("Value", QDate(2021, 3, 4), day(2021, 3, 4));
    row("TimeInput", true, true);
    row("DataType", 7, 7);
    row("Changed", true, true);
}

void tst_DateTime::lateBoundProperties()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(QVariant, expected);
    zelTestScope scope;
    std::unique_ptr<QObject> o(zel::CreateObject(QStringLiteral("zelCtrl.zelDateTime")));
    QVERIFY(qobject_cast<zelDateTime *>(o.get()));
    QVERIFY(zel::SetProperty(o.get(), name, value));
    QVariant got = zel::GetProperty(o.get(), name);
    QVERIFY(got.convert(expected.metaType()));
    QCOMPARE(got, expected);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_DateTime::wrongTypeByNameIsLogged_data()
{
    QTest::addColumn<bool>("timeInput");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("TimeInput") << false << "TimeInput" << QVariant("maybe");
    QTest::newRow("Enabled") << false << "Enabled" << QVariant("x");
    QTest::newRow("DataType") << false << "DataType" << QVariant("date");
    QTest::newRow("PrefixWidth") << false << "PrefixWidth" << QVariant("wide");
    QTest::newRow("Changed") << false << "Changed" << QVariant("perhaps");
    QTest::newRow("Value in time mode") << true << "Value" << QVariant("soon");
    QTest::newRow("Value out of range") << true << "Value" << QVariant(1e12);
}

void tst_DateTime::wrongTypeByNameIsLogged()
{
    QFETCH(bool, timeInput);
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    zelTestScope scope;
    auto f = makeField(timeInput);
    const QVariant before = zel::GetProperty(f.get(), name);
    zel::SetProperty(f.get(), name, value);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelDateTime.%1 Let").arg(name)), 1);
    QCOMPARE(zel::GetProperty(f.get(), name), before);
    QCOMPARE(scope.fake().messages.size(), 0);
}

void tst_DateTime::dispatchIds_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("id");
    const char *const rows[][2] = {
        {"Enabled", "0x68030000"},
        {"Text", "0x68030001"},
        {"Value", "0x68030002"},
        {"TimeInput", "0x68030003"},
        {"DataType", "0x68030004"},
        {"Width", "0x68030005"},
        {"SuffixBold", "0x68030006"},
        {"SuffixParens", "0x68030007"},
        {"SuffixWidth", "0x68030008"},
        {"SuffixAlignment", "0x68030009"},
        {"Suffix", "0x6803000a"},
        {"SendKeysTab", "0x6803000b"},
        {"PrefixBold", "0x6803000c"},
        {"PrefixColon", "0x6803000d"},
        {"PrefixWidth", "0x6803000e"},
        {"PrefixAlignment", "0x6803000f"},
        {"Prefix", "0x68030010"},
        {"Margin", "0x68030011"},
        {"Property.Changed", "0x68030012"},
        {"Changed", "1"},
        {"KeyPress", "2"},
        {"KeyDown", "3"},
        {"KeyUp", "4"},
    };
    for (const auto &r : rows)
        QTest::newRow(r[0]) << QString::fromLatin1(r[0]) << QString::fromLatin1(r[1]);
}

void tst_DateTime::dispatchIds()
{
    QFETCH(QString, key);
    QFETCH(QString, id);
    const QMetaObject &mo = zelDateTime::staticMetaObject;
    const QByteArray name = "DispId." + key.toLatin1();
    const int index = mo.indexOfClassInfo(name.constData());
    QVERIFY2(index >= 0, name.constData());
    QCOMPARE(QString::fromLatin1(mo.classInfo(index).value()), id);
    // Each member once: ids do not repeat.
    int same = 0;
    for (int i = 0; i < mo.classInfoCount(); ++i)
        if (QString::fromLatin1(mo.classInfo(i).value()) == id)
            ++same;
    QCOMPARE(same, 1);
}

void tst_DateTime::eventsByName()
{
    const QMetaObject &mo = zelDateTime::staticMetaObject;
    for (const char *sig :
         {"Changed()", "KeyPress(qint16&)", "KeyDown(qint16&,qint16&)", "KeyUp(qint16&,qint16&)"})
        QVERIFY2(mo.indexOfSignal(QMetaObject::normalizedSignature(sig).constData()) >= 0, sig);
    // Every member named by a dispatch id is reachable by that name.
    for (int i = mo.classInfoOffset(); i < mo.classInfoCount(); ++i) {
        QString member = QString::fromLatin1(mo.classInfo(i).name()).mid(7);
        member.remove(QStringLiteral("Property."));
        const QByteArray m = member.toLatin1();
        bool found = mo.indexOfProperty(m.constData()) >= 0;
        for (int s = 0; s < mo.methodCount() && !found; ++s)
            found = mo.method(s).methodType() == QMetaMethod::Signal && mo.method(s).name() == m;
        QVERIFY2(found, m.constData());
    }
}

QTEST_MAIN(tst_DateTime)
#include "tst_datetime.moc"
