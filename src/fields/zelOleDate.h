#pragma once

// Dates the classic way: a date value is a count of days since
// 30 December 1899 00:00 (date value 0), with the time of day as its
// fraction; a time of day without a date lies on that day. Before the zero
// day the fraction still counts forward in the day (-1.25 is 29 December
// 1899 06:00). QDateTime values are local time.
//
// Texts that read as dates: the user's short date form (with a two- or
// four-digit year; two-digit years 30 to 99 lie in the 1900s, 00 to 29 in
// the 2000s), the same digit groups with any of "/", "-", "." or a blank
// between them, and ISO 8601 (yyyy-MM-dd). Days and months are checked
// strictly: "31/02/2020" is no date, and day and month are never swapped to
// make a text fit.

#include "zelCtrlExport.h"
#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QVariant>

namespace zel {

// 30 December 1899 00:00, the date value 0.
ZELCTRL_EXPORT QDateTime OleZeroDate();

// The date value of a date and time; 0 for an invalid QDateTime.
ZELCTRL_EXPORT double DateTimeToOle(const QDateTime &dt);
// The date and time of a date value; throws zelError 6 outside the years
// 100 to 9999 and for values that are no number.
ZELCTRL_EXPORT QDateTime OleToDateTime(double d);

// The format in which the library writes and reads typed dates: the
// locale's short date form with the year in four digits; ISO yyyy-MM-dd for
// locales whose short form is not made of digit groups (names of months).
ZELCTRL_EXPORT QString DateEntryFormat(const QLocale &locale = QLocale());

// A date in the entry format ("1/2/1950" in the United States,
// "02.01.1950" in Germany).
ZELCTRL_EXPORT QString ShortDateText(const QDate &date, const QLocale &locale = QLocale());

// A text read as a date (at midnight) or, failing that, as a time of day
// (on the zero day); an invalid QDateTime when it reads as neither.
ZELCTRL_EXPORT QDateTime DateFromText(const QString &text, const QLocale &locale = QLocale());

// Any value as a date, as the classic date conversion reads it: dates and
// times as they are, QDate at midnight, QTime on the zero day, numbers as
// date values, texts through DateFromText. Throws zelError 13 for anything
// else and for texts that are no date.
ZELCTRL_EXPORT QDateTime ToDateTime(const QVariant &v);

} // namespace zel
