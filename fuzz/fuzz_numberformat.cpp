// Number formats as hosts write them into SrcFormat and DstFormat: any
// format and any number give a text without crashing, a 0 placeholder shows
// a digit, and no text is longer than the number's digits, its separators
// and the format's own characters can make.

#include "zelFuzzSupport.h"

#include "core/zelNumberFormat.h"

#include <QRegularExpression>

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    zelfuzz::Bytes in(data, size);
    const double value = in.Double();
    const QString format = in.Rest();
    const QString text = zel::FormatNumber(value, format);
    // A 0 placeholder always shows a digit of a finite number, in whichever
    // part of a one-section format it stands.
    const bool plainSection = !format.contains(QLatin1Char(';')) &&
                              !format.contains(QLatin1Char('"')) &&
                              !format.contains(QLatin1Char('\\'));
    if (std::isfinite(value) && plainSection && format.contains(QLatin1Char('0')))
        zelfuzz::Check(text.contains(QRegularExpression(QStringLiteral("[0-9]"))),
                       "a 0 placeholder showed no digit");
    // 309 digits at most before the point, a comma per three, the format's
    // characters (fraction digits among them) and a sign.
    zelfuzz::Check(text.size() <= 2 * format.size() + 450, "a text longer than its format allows");
    return 0;
}
