#pragma once

// How the legend editors read what the user typed into a cell.

#include <QString>
#include <QVariant>

#include <cmath>

namespace zelLegendText {

// A finite number written in the invariant way, blanks around it allowed:
// "abc", "", "NaN", "inf" and "1e400" are not numbers.
inline bool Number(const QString &text, double &d)
{
    bool ok = false;
    const double v = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(v))
        return false;
    d = v;
    return true;
}

// A typed value: nothing for an empty cell, a number where the values are
// scalars and the text reads as one, the text otherwise.
inline QVariant ValueFromText(const QString &text, bool scalar)
{
    double d = 0;
    if (text.isEmpty())
        return {};
    if (scalar && Number(text, d))
        return d;
    return text;
}

} // namespace zelLegendText
