// The classic conversions and date values, each against values worked out
// by hand: a number, a Boolean, a colour or a date as a host or a property
// store may give it, and the error a value that does not read answers.

#include "core/zelConvert.h"
#include "fields/zelOleDate.h"

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

} // namespace

class tst_Convert : public QObject
{
    Q_OBJECT

private slots:
    void conversions_data()
    {
        QTest::addColumn<QString>("to");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("expected");
        auto row = [](const char *to, const QVariant &v, const char *expected) {
            QTest::newRow(
                qPrintable(QStringLiteral("%1 %2 %3").arg(to, v.typeName(), v.toString())))
                << QString(to) << v << QString(expected);
        };
        // Whole numbers: a half goes to the even neighbour; beyond the width is
        // an overflow; True is -1.
        row("CInt", 2.5, "2");
        row("CInt", 3.5, "4");
        row("CInt", -2.5, "-2");
        row("CInt", "12", "12");
        row("CInt", " 7.5 ", "8");
        row("CInt", true, "-1");
        row("CInt", 32767.4, "32767");
        row("CInt", 32767.5, "error 6");
        row("CInt", -32768.5, "-32768");
        row("CInt", 70000, "error 6");
        row("CInt", "abc", "error 13");
        row("CInt", "", "error 13");
        row("CInt", QPoint(1, 2), "error 13");
        row("CLng", 2147483647, "2147483647");
        row("CLng", 2147483647.5, "error 6");
        row("CLng", -2147483648.0, "-2147483648");
        row("CLng", 1e12, "error 6");
        row("CLng", "1e3", "1000");
        row("CDbl", "1.5", "1.5");
        row("CDbl", false, "0");
        row("CDbl", "1,5x", "error 13");
        row("CSng", 0.5, "0.5");
        row("CSng", 1e300, "error 6");
        row("CBool", "True", "true");
        row("CBool", "false", "false");
        row("CBool", 0, "false");
        row("CBool", -2.5, "true");
        row("CBool", "0", "false");
        row("CBool", "maybe", "error 13");
        row("CStr", true, "True");
        row("CStr", false, "False");
        row("CStr", 2.5, "2.5");
        row("CStr", QVariantMap{{"a", 1}}, "error 13");
        // Colours 0x00BBGGRR; the high bit names a system colour, also in its
        // negative 32-bit form.
        row("CColour", 0x123456, "1193046");
        row("CColour", QColor(0x11, 0x22, 0x33), "3351057");
        row("CColour", qint32(-2147483633), "2147483663");
        row("CColour", 0x01000000, "error 380");
        row("CColour", 1e12, "error 6");
        row("CColour", "red", "error 13");
        // The leading number of a text.
        row("Val", "12abc", "12");
        row("Val", "abc", "0");
        row("Val", "  -3.25 m", "-3.25");
        row("Val", "1.5.3", "1.5");
    }

    void conversions()
    {
        QFETCH(QString, to);
        QFETCH(QVariant, value);
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
        QTest::addColumn<double>("value");
        QTest::addColumn<QDateTime>("date"); // invalid: error 6
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
        QFETCH(double, value);
        QFETCH(QDateTime, date);
        const QString got = outcome([&] { return QVariant(zel::OleToDateTime(value)); });
        QCOMPARE(got, date.isValid() ? date.toString(Qt::ISODate) : QStringLiteral("error 6"));
        if (date.isValid())
            QCOMPARE(zel::DateTimeToOle(date), value);
    }

    void textsAsDates_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("expected");
        auto row = [](const char *locale, const QVariant &v, const char *expected) {
            QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(locale, v.toString())))
                << QString(locale) << v << QString(expected);
        };
        row("en_US", "1/2/1950", "1950-01-02T00:00:00");
        row("en_US", "1-2-50", "1950-01-02T00:00:00");
        row("en_US", "1.2.30", "1930-01-02T00:00:00");
        row("en_US", "1 2 29", "2029-01-02T00:00:00");
        row("en_US", "1950-01-02", "1950-01-02T00:00:00");
        row("en_US", "31/02/2020", "error 13");
        row("en_US", "2/31/2020", "error 13");
        row("en_US", "soon", "error 13");
        row("de_DE", "2.1.1950", "1950-01-02T00:00:00");
        row("de_DE", "1/2/1950", "1950-02-01T00:00:00");
        row("en_US", QDate(2021, 3, 4), "2021-03-04T00:00:00");
        row("en_US", QTime(6, 30), "1899-12-30T06:30:00");
        row("en_US", 18265.25, "1950-01-02T06:00:00");
        row("en_US", QPoint(1, 2), "error 13");
    }

    void textsAsDates()
    {
        QFETCH(QString, locale);
        QFETCH(QVariant, value);
        QLocale::setDefault(QLocale(locale));
        QTEST(outcome([&] { return QVariant(zel::ToDateTime(value)); }), "expected");
        QCOMPARE(zel::DateTimeToOle(QDateTime()), 0.0);
        QLocale::setDefault(QLocale::c());
    }
};

QTEST_MAIN(tst_Convert)
#include "tst_convert.moc"
