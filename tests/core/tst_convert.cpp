// The classic conversions and date values, each against values worked out
// by hand: a number, a Boolean, a colour or a date as a host or a property
// store may give it, and the error a value that does not read answers.

#include "core/zelConvert.h"
#include "fields/zelOleDate.h"
#include "zelTestData.h"

#include <QColor>
#include <QPoint>
#include <QTest>

#include <functional>

namespace {

const QDateTime zeroDay(QDate(1899, 12, 30), QTime(0, 0));

// What a conversion gives, or "error <n>".
QString outcome(const std::function<QVariant()> &f)
{
    try {
        const QVariant v = f();
        if (v.metaType() == QMetaType::fromType<QDateTime>())
            return v.toDateTime().toString(Qt::ISODate);
        return v.toString();
    } catch (const zelError &e) {
        return QStringLiteral("error %1").arg(e.Number());
    }
}

using Case = std::pair<QVariant, const char *>;

// A value given and the outcome expected of it.
Case as(const QVariant &v, const char *expected)
{
    return {v, expected};
}

// Rows of a conversion or a locale: what it is given and what it answers.
void rows(const char *first, std::initializer_list<Case> cases)
{
    for (const auto &[v, expected] : cases)
        QTest::addRow("%s %s %s", first, v.typeName(), qPrintable(v.toString()))
            << QString(first) << v << QString(expected);
}

} // namespace

class tst_Convert : public QObject
{
    Q_OBJECT

private slots:
    void conversions_data()
    {
        zelColumns<QString, QVariant, QString>({"to", "value", "expected"});
        // Whole numbers: a half goes to the even neighbour; beyond the width is
        // an overflow; True is -1.
        rows("CInt", {as(2.5, "2"), as(3.5, "4"), as(-2.5, "-2"), as("12", "12"), as(" 7.5 ", "8"),
                      as(true, "-1"), as(32767.4, "32767"), as(32767.5, "error 6"),
                      as(-32768.5, "-32768"), as(70000, "error 6"), as("abc", "error 13"),
                      as("", "error 13"), as(QPoint(1, 2), "error 13")});
        rows("CLng", {as(2147483647, "2147483647"), as(2147483647.5, "error 6"),
                      as(-2147483648.0, "-2147483648"), as(1e12, "error 6"), as("1e3", "1000")});
        rows("CDbl", {as("1.5", "1.5"), as(false, "0"), as("1,5x", "error 13")});
        rows("CSng", {as(0.5, "0.5"), as(1e300, "error 6")});
        rows("CBool", {as("True", "true"), as("false", "false"), as(0, "false"), as(-2.5, "true"),
                       as("0", "false"), as("maybe", "error 13")});
        rows("CStr", {as(true, "True"), as(false, "False"), as(2.5, "2.5"),
                      as(QVariantMap{{"a", 1}}, "error 13")});
        // Colours 0x00BBGGRR; the high bit names a system colour, also in its
        // negative 32-bit form.
        rows("CColour", {as(0x123456, "1193046"), as(QColor(0x11, 0x22, 0x33), "3351057"),
                         as(qint32(-2147483633), "2147483663"), as(0x01000000, "error 380"),
                         as(1e12, "error 6"), as("red", "error 13")});
        // The leading number of a text.
        rows("Val",
             {as("12abc", "12"), as("abc", "0"), as("  -3.25 m", "-3.25"), as("1.5.3", "1.5")});
    }

    void conversions()
    {
        const auto [to, value] = zelFetch<QString, QVariant>({"to", "value"});
        const QHash<QString, std::function<QVariant()>> f{
            {"CInt", [&] { return QVariant(int(zel::CInt(value))); }},
            {"CLng", [&] { return QVariant(zel::CLng(value)); }},
            {"CDbl", [&] { return QVariant(zel::CDbl(value)); }},
            {"CSng", [&] { return QVariant(double(zel::CSng(value))); }},
            {"CBool", [&] { return QVariant(zel::CBool(value)); }},
            {"CStr", [&] { return QVariant(zel::CStr(value)); }},
            {"CColour", [&] { return QVariant(zel::CColour(value)); }},
            {"Val", [&] { return QVariant(zel::Val(value.toString())); }}};
        QTEST(outcome(f[to]), "expected");
    }

    void dateValues_data()
    {
        // date: invalid: error 6
        zelColumns<double, QDateTime>({"value", "date"});
        auto row = [](const char *name, double v, const QDateTime &d) {
            QTest::newRow(name) << v << d;
        };
        row("zero day", 0, zeroDay);
        row("1 January 1900", 2, QDateTime(QDate(1900, 1, 1), QTime(0, 0)));
        row("2 January 1950 06:00", 18265.25, QDateTime(QDate(1950, 1, 2), QTime(6, 0)));
        row("1 January 2000", 36526, QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
        row("evening of the zero day", 0.75, QDateTime(QDate(1899, 12, 30), QTime(18, 0)));
        row("before the zero day the time still counts forward", -1.25,
            QDateTime(QDate(1899, 12, 29), QTime(6, 0)));
        row("last day of 9999", 2958465, QDateTime(QDate(9999, 12, 31), QTime(0, 0)));
        row("first day of 100", -657434, QDateTime(QDate(100, 1, 1), QTime(0, 0)));
        row("after 9999", 2958466, QDateTime());
        row("before 100", -657435, QDateTime());
        row("huge", 1e12, QDateTime());
        row("no number", std::numeric_limits<double>::quiet_NaN(), QDateTime());
    }

    void dateValues()
    {
        const auto [value, date] = zelFetch<double, QDateTime>({"value", "date"});
        const QString got = outcome([&] { return QVariant(zel::OleToDateTime(value)); });
        QCOMPARE(got, date.isValid() ? date.toString(Qt::ISODate) : QStringLiteral("error 6"));
        if (date.isValid())
            QCOMPARE(zel::DateTimeToOle(date), value);
    }

    void textsAsDates_data()
    {
        zelColumns<QString, QVariant, QString>({"locale", "value", "expected"});
        rows("en_US", {as("1/2/1950", "1950-01-02T00:00:00"), as("1-2-50", "1950-01-02T00:00:00"),
                       as("1.2.30", "1930-01-02T00:00:00"), as("1 2 29", "2029-01-02T00:00:00"),
                       as("1950-01-02", "1950-01-02T00:00:00"), as("31/02/2020", "error 13"),
                       as("2/31/2020", "error 13"), as("soon", "error 13")});
        rows("de_DE",
             {as("2.1.1950", "1950-01-02T00:00:00"), as("1/2/1950", "1950-02-01T00:00:00")});
        rows("en_US",
             {as(QDate(2021, 3, 4), "2021-03-04T00:00:00"), as(QTime(6, 30), "1899-12-30T06:30:00"),
              as(18265.25, "1950-01-02T06:00:00"), as(QPoint(1, 2), "error 13")});
    }

    void textsAsDates()
    {
        const auto [locale, value] = zelFetch<QString, QVariant>({"locale", "value"});
        QLocale::setDefault(QLocale(locale));
        QTEST(outcome([&] { return QVariant(zel::ToDateTime(value)); }), "expected");
        QCOMPARE(zel::DateTimeToOle(QDateTime()), 0.0);
        QLocale::setDefault(QLocale::c());
    }
};

QTEST_MAIN(tst_Convert)
#include "tst_convert.moc"
