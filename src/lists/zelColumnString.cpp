#include "lists/zelColumnString.h"

#include "core/zelConvert.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zel {

namespace {

QStringView trimBlanks(QStringView s)
{
    qsizetype b = 0, e = s.size();
    while (b < e && s[b] == u' ')
        ++b;
    while (e > b && s[e - 1] == u' ')
        --e;
    return s.mid(b, e - b);
}

// The width text as the classic conversion to a 16-bit integer reads it;
// false when it overflows.
bool width16(QStringView text, int *width)
{
    const double v = std::nearbyint(Val(text.toString()));
    if (!std::isfinite(v) || v < std::numeric_limits<qint16>::min() ||
        v > std::numeric_limits<qint16>::max()) {
        *width = 0;
        return false;
    }
    *width = int(v);
    return true;
}

zelColumnDesc parseEntry(QStringView entry, zelColumnDialect dialect, double twipsPerPixel)
{
    entry = trimBlanks(entry);
    // Appending "~" and splitting at it: the head ends at the first "~" and
    // the width text at the second.
    const qsizetype tilde = entry.indexOf(u'~');
    const QStringView head = tilde < 0 ? entry : entry.left(tilde);
    QStringView widthText;
    if (tilde >= 0) {
        widthText = entry.mid(tilde + 1);
        const qsizetype next = widthText.indexOf(u'~');
        if (next >= 0)
            widthText = widthText.left(next);
    }

    zelColumnDesc d;
    const QChar flag = head.isEmpty() ? QChar() : head.front();
    if (head.isEmpty() && dialect == zelColumnDialect::TreeList) {
        d.alignment = 0;
    } else if (flag == u'<' || flag == u'>' || flag == u'|' || flag == u'_') {
        d.caption = head.mid(1).toString();
        if (flag == u'<')
            d.alignment = 0;
        else if (flag == u'>')
            d.alignment = 2;
        else if (flag == u'|')
            d.alignment = 1;
        else {
            d.alignment = -1;
            d.visible =
                dialect == zelColumnDialect::Combo ? zelColumnDesc::Shown : zelColumnDesc::Hidden;
        }
    } else {
        d.caption = head.isEmpty() ? QStringLiteral("Default") : head.toString();
        d.alignment = 1;
    }

    int width = 0;
    d.widthOverflow = !width16(widthText, &width);
    if (width > 300) // a tiny twipsPerPixel must not overflow the result
        width = int(std::min(std::nearbyint(width / twipsPerPixel), 32767.0));
    d.widthPixels = width > 0 ? width : 0;
    return d;
}

} // namespace

QList<zelColumnDesc> ParseColumns(const QString &colText, zelColumnDialect dialect,
                                  double twipsPerPixel, zelColumnParseIssues *issues)
{
    if (!(twipsPerPixel > 0) || !std::isfinite(twipsPerPixel))
        twipsPerPixel = 15;
    zelColumnParseIssues found;
    QList<zelColumnDesc> columns;
    const QString text = colText + QLatin1Char(' ');
    const QStringView all(text);
    qsizetype start = 0;
    while (true) {
        if (columns.size() == zelMaxColumns) {
            found.truncated = true;
            break;
        }
        const qsizetype tab = all.indexOf(u'\t', start);
        const QStringView entry = all.mid(start, (tab < 0 ? all.size() : tab) - start);
        columns.append(parseEntry(entry, dialect, twipsPerPixel));
        if (columns.back().widthOverflow && found.overflowColumn < 0)
            found.overflowColumn = int(columns.size() - 1);
        if (tab < 0)
            break;
        start = tab + 1;
    }
    if (issues)
        *issues = found;
    return columns;
}

} // namespace zel
