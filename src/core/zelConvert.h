#pragma once

// Conversions the way the classic controls read values: a number from text,
// 16- and 32-bit integers with banker's rounding and an overflow error (6),
// Booleans from text or numbers, and a type mismatch (13) for anything that
// does not read as the type asked for. Each throws zelError.

#include "core/zelError.h"
#include "zelCtrlExport.h"

#include <QString>
#include <QVariant>

#include <limits>

namespace zel {

ZELCTRL_EXPORT qint16 CInt(const QVariant &v);
ZELCTRL_EXPORT qint32 CLng(const QVariant &v);
ZELCTRL_EXPORT float CSng(const QVariant &v);
ZELCTRL_EXPORT double CDbl(const QVariant &v);
ZELCTRL_EXPORT bool CBool(const QVariant &v);
ZELCTRL_EXPORT QString CStr(const QVariant &v);
// A colour as a host may give it: a QColor, or a number in the form
// 0x00BBGGRR, where 0x8000000x (or its negative 32-bit form) names a system
// colour. Throws 6 for numbers out of range, 380 for other high bytes.
ZELCTRL_EXPORT quint32 CColour(const QVariant &v);

// The leading number of a text, as the classic value-of-text reads it:
// blanks are skipped, reading stops at the first character that cannot
// continue a number; "12abc" gives 12, "abc" gives 0.
ZELCTRL_EXPORT double Val(const QString &text);

// A number rounded to a count of decimals and shown with exactly that many
// ("0.00" for 2), the invariant way that format strings of the form "0.00"
// produce.
ZELCTRL_EXPORT QString FormatFixed(double value, int decimals);

// Rounds half to even at a count of decimals.
ZELCTRL_EXPORT double RoundTo(double value, int decimals);

// Checked integer arithmetic: an out-of-range result raises error 6.
template <typename T> T Checked(long long value)
{
    if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max())
        throw zelError(zelError::Overflow);
    return T(value);
}
template <typename T> T CheckedAdd(T a, T b)
{
    return Checked<T>((long long)a + b);
}
template <typename T> T CheckedSub(T a, T b)
{
    return Checked<T>((long long)a - b);
}
template <typename T> T CheckedMul(T a, T b)
{
    return Checked<T>((long long)a * b);
}

} // namespace zel
