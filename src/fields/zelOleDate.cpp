#include "fields/zelOleDate.h"

#include "core/zelConvert.h"
#include "core/zelError.h"

#include "platform/zelVariantKind.h"

#include <QRegularExpression>
#include <QStringList>

#include <cmath>

namespace zel {

namespace {

bool isNumberOrBool(const QVariant &v)
{
    return zel::IsNumber(v, true);
}

constexpr qint64 msPerDay = 86400000;
// 1 January 100 and 31 December 9999 as date values: the classic range.
constexpr double oleMin = -657434.0;
constexpr double oleMax = 2958466.0;

QDate zeroDay()
{
    return QDate(1899, 12, 30);
}

// Which of day, month and year come first, second and third in a format:
// 'd', 'M' and 'y' in their order of appearance.
QString fieldOrder(const QString &format)
{
    QString order;
    bool quoted = false;
    for (const QChar c : format) {
        if (c == QLatin1Char('\'')) {
            quoted = !quoted;
            continue;
        }
        if (quoted)
            continue;
        if ((c == QLatin1Char('d') || c == QLatin1Char('M') || c == QLatin1Char('y')) &&
            !order.contains(c))
            order += c;
    }
    return order;
}

// Two-digit years as the classic conversion windows them.
int windowYear(int year, qsizetype digits)
{
    if (digits > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

bool isDateSeparator(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('-') || c == QLatin1Char('.') ||
           c == QLatin1Char(' ');
}

// Digit groups with any date separator between them, in the order of the
// entry format. Two groups are day and month of the current year.
QDate dateFromGroups(const QString &text, const QString &order)
{
    QStringList groups;
    QString current;
    for (const QChar c : text) {
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9')) {
            current += c;
        } else if (isDateSeparator(c)) {
            if (current.isEmpty())
                return QDate();
            groups.append(current);
            current.clear();
        } else {
            return QDate();
        }
    }
    if (current.isEmpty())
        return QDate();
    groups.append(current);
    if (groups.size() < 2 || groups.size() > 3)
        return QDate();

    QString fields = order;
    if (groups.size() == 2)
        fields.remove(QLatin1Char('y'));
    int day = 0, month = 0, year = QDate::currentDate().year();
    for (qsizetype i = 0; i < groups.size(); ++i) {
        const QString &g = groups.at(i);
        const int n = g.toInt();
        switch (fields.at(i).toLatin1()) {
        case 'd':
            if (g.size() > 2)
                return QDate();
            day = n;
            break;
        case 'M':
            if (g.size() > 2)
                return QDate();
            month = n;
            break;
        default:
            if (g.size() > 4)
                return QDate();
            year = windowYear(n, g.size());
            break;
        }
    }
    return QDate(year, month, day); // invalid when the day or month is out of range
}

QTime timeFromText(const QString &text, const QLocale &locale)
{
    static const char *const formats[] = {"H:mm",       "H:mm:ss", "h:mm AP",
                                          "h:mm:ss AP", "h:mmAP",  "h:mm:ssAP"};
    for (const char *f : formats) {
        const QTime t = QTime::fromString(text, QLatin1String(f));
        if (t.isValid())
            return t;
    }
    for (const auto format : {QLocale::ShortFormat, QLocale::LongFormat}) {
        const QTime t = locale.toTime(text, format);
        if (t.isValid())
            return t;
    }
    return QTime();
}

} // namespace

QDateTime OleZeroDate()
{
    return QDateTime(zeroDay(), QTime(0, 0));
}

double DateTimeToOle(const QDateTime &dt)
{
    if (!dt.isValid())
        return 0.0;
    const qint64 days = zeroDay().daysTo(dt.date());
    const double fraction = double(dt.time().msecsSinceStartOfDay()) / double(msPerDay);
    // Before the zero day the whole days count back but the time still
    // counts forward: 29 December 1899 06:00 is -1.25.
    return days >= 0 ? double(days) + fraction : double(days) - fraction;
}

QDateTime OleToDateTime(double d)
{
    if (!std::isfinite(d) || d < oleMin || d >= oleMax)
        throw zelError(zelError::Overflow);
    double whole = std::trunc(d);
    qint64 ms = std::llround(std::fabs(d - whole) * double(msPerDay));
    if (ms >= msPerDay) { // rounded up into the next day
        whole += d < 0 ? -1.0 : 1.0;
        ms = 0;
    }
    return QDateTime(zeroDay().addDays(qint64(whole)), QTime::fromMSecsSinceStartOfDay(int(ms)));
}

QString DateEntryFormat(const QLocale &locale)
{
    static const QString iso = QStringLiteral("yyyy-MM-dd");
    const QString f = locale.dateFormat(QLocale::ShortFormat);
    if (f.contains(QLatin1Char('\'')))
        return iso;
    // Rebuilt from the locale's fields and its first separator, so that the
    // text is three digit groups with one separator between them.
    QString order, runs[3];
    QChar separator;
    for (qsizetype i = 0; i < f.size();) {
        const QChar c = f.at(i);
        qsizetype n = 1;
        while (i + n < f.size() && f.at(i + n) == c)
            ++n;
        if (c == QLatin1Char('d') || c == QLatin1Char('M') || c == QLatin1Char('y')) {
            if (order.contains(c) || (c != QLatin1Char('y') && n > 2))
                return iso; // names of days or months
            runs[order.size()] = c == QLatin1Char('y') ? QStringLiteral("yyyy") : QString(n, c);
            order += c;
        } else if (c.isLetter()) {
            return iso;
        } else if (separator.isNull() && !order.isEmpty() && isDateSeparator(c)) {
            separator = c;
        }
        i += n;
    }
    if (order.size() != 3 || separator.isNull())
        return iso;
    return runs[0] + separator + runs[1] + separator + runs[2];
}

QString ShortDateText(const QDate &date, const QLocale &locale)
{
    return locale.toString(date, DateEntryFormat(locale));
}

QDateTime DateFromText(const QString &text, const QLocale &locale)
{
    const QString t = text.trimmed();
    if (t.isEmpty())
        return QDateTime();

    static const QRegularExpression isoDate(QStringLiteral("^(\\d{4})-(\\d{1,2})-(\\d{1,2})$"));
    const QRegularExpressionMatch m = isoDate.match(t);
    if (m.hasMatch()) {
        const QDate d(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
        return d.isValid() ? QDateTime(d, QTime(0, 0)) : QDateTime();
    }

    QDate d = dateFromGroups(t, fieldOrder(DateEntryFormat(locale)));
    if (!d.isValid()) {
        // The locale's own short form, which may name the month.
        const QString shortFormat = locale.dateFormat(QLocale::ShortFormat);
        d = locale.toDate(t, shortFormat);
        if (d.isValid() && !shortFormat.contains(QLatin1String("yyyy")))
            d = QDate(windowYear(d.year() % 100, 2), d.month(), d.day());
    }
    if (d.isValid())
        return QDateTime(d, QTime(0, 0));

    if (t.contains(QLatin1Char('T'))) {
        const QDateTime iso = QDateTime::fromString(t, Qt::ISODate);
        if (iso.isValid())
            return iso.toLocalTime();
    }

    const QTime time = timeFromText(t, locale);
    if (time.isValid())
        return QDateTime(zeroDay(), time);
    return QDateTime();
}

QDateTime ToDateTime(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return OleZeroDate();
    switch (v.metaType().id()) {
    case QMetaType::QDateTime: {
        const QDateTime dt = v.toDateTime();
        if (!dt.isValid())
            throw zelError(zelError::TypeMismatch);
        return dt.toLocalTime();
    }
    case QMetaType::QDate: {
        const QDate d = v.toDate();
        if (!d.isValid())
            throw zelError(zelError::TypeMismatch);
        return QDateTime(d, QTime(0, 0));
    }
    case QMetaType::QTime: {
        const QTime t = v.toTime();
        if (!t.isValid())
            throw zelError(zelError::TypeMismatch);
        return QDateTime(zeroDay(), t);
    }
    case QMetaType::QString: {
        const QDateTime dt = DateFromText(v.toString());
        if (!dt.isValid())
            throw zelError(zelError::TypeMismatch);
        return dt;
    }
    default:
        break;
    }
    if (isNumberOrBool(v))
        return OleToDateTime(CDbl(v));
    throw zelError(zelError::TypeMismatch);
}

} // namespace zel
