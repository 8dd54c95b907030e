#pragma once

// Classic number format strings, as hosts of the legend editors write them:
//
//   "0.00"      digits: 0 always shows a digit, # only a significant one
//   "#,##0.0"   a comma between digit placeholders groups thousands; commas
//               right before the decimal point (or the end) divide by 1,000
//   "0%"        each % multiplies by 100 and shows itself
//   "0.00E+00"  scientific; E- (or e-) shows the exponent's sign only when
//               it is negative
//   "\x" "text" literal characters; blanks, $ + - ( ) : / show as they are
//   "a;b;c"     sections for positive, negative and zero values; an empty
//               section or a missing one falls back to the first (a negative
//               value in the first section gets a leading "-")
//
// and the named formats "General Number", "Fixed", "Standard", "Percent",
// "Scientific" and "Currency". Numbers round half away from zero. An empty
// format, a format that is not a number format at all (letters outside
// quotes, with no digit placeholder) and a broken one (an open quote, a
// backslash at the end) show the number plainly, as does a value that is
// not finite. A negative value that rounds to zero shows without its sign.

#include "zelCtrlExport.h"

#include <QString>

namespace zel {

ZELCTRL_EXPORT QString FormatNumber(double value, const QString &format);

// The number plainly: up to 15 significant digits, no grouping,
// "E+20"/"E-07" for very large and very small numbers.
ZELCTRL_EXPORT QString PlainNumber(double value);

} // namespace zel
