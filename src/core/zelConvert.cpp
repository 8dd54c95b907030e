#include "core/zelConvert.h"

#include "platform/zelPlatform.h"
#include "platform/zelVariantKind.h"

#include <QColor>

#include <QLocale>

#include <cmath>

namespace zel {

namespace {

// A whole text as a number: blanks around it allowed, "&H" hexadecimal,
// the invariant or the user's decimal separator. Anything else is a mismatch.
double textToDouble(const QString &text)
{
    const QString t = text.trimmed();
    if (t.startsWith(QLatin1String("&H"), Qt::CaseInsensitive)) {
        bool ok = false;
        const qlonglong n = t.mid(2).toLongLong(&ok, 16);
        if (ok)
            return double(n);
    }
    bool ok = false;
    double d = QLocale::c().toDouble(t, &ok);
    if (!ok)
        d = QLocale::system().toDouble(t, &ok);
    if (!ok || !std::isfinite(d))
        throw zelError(zelError::TypeMismatch);
    return d;
}

double toDouble(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return 0.0;
    if (v.metaType().id() == QMetaType::Bool)
        return v.toBool() ? -1.0 : 0.0;
    if (zel::IsNumber(v))
        return v.toDouble();
    if (v.metaType().id() == QMetaType::QString || v.metaType().id() == QMetaType::QByteArray ||
        v.metaType().id() == QMetaType::QChar)
        return textToDouble(v.toString());
    bool ok = false;
    const double d = v.toDouble(&ok);
    if (!ok)
        throw zelError(zelError::TypeMismatch);
    return d;
}

template <typename T> T toInteger(const QVariant &v)
{
    const double d = toDouble(v);
    const double r = std::nearbyint(d); // round half to even
    if (!std::isfinite(r) || r < double(std::numeric_limits<T>::min()) ||
        r > double(std::numeric_limits<T>::max()))
        throw zelError(zelError::Overflow);
    return T(r);
}

} // namespace

qint16 CInt(const QVariant &v)
{
    return toInteger<qint16>(v);
}

qint32 CLng(const QVariant &v)
{
    return toInteger<qint32>(v);
}

float CSng(const QVariant &v)
{
    const double d = toDouble(v);
    if (std::fabs(d) > double(std::numeric_limits<float>::max()))
        throw zelError(zelError::Overflow);
    return float(d);
}

double CDbl(const QVariant &v)
{
    return toDouble(v);
}

bool CBool(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return false;
    if (v.metaType().id() == QMetaType::Bool)
        return v.toBool();
    if (v.metaType().id() == QMetaType::QString) {
        const QString t = v.toString().trimmed();
        if (t.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
            return true;
        if (t.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
            return false;
    }
    return toDouble(v) != 0.0;
}

QString CStr(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return QString();
    if (v.metaType().id() == QMetaType::Bool)
        return v.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    if (v.canConvert<QString>())
        return v.toString();
    throw zelError(zelError::TypeMismatch);
}

double Val(const QString &text)
{
    QString digits;
    digits.reserve(text.size());
    bool seenDigit = false, seenPoint = false, seenExp = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') ||
            c == QLatin1Char('\r'))
            continue;
        if (c.isDigit() && c.unicode() < 128) {
            digits += c;
            seenDigit = true;
        } else if ((c == QLatin1Char('-') || c == QLatin1Char('+')) &&
                   (digits.isEmpty() || digits.endsWith(QLatin1Char('E')))) {
            digits += c;
        } else if (c == QLatin1Char('.') && !seenPoint && !seenExp) {
            digits += c;
            seenPoint = true;
        } else if ((c == QLatin1Char('e') || c == QLatin1Char('E') || c == QLatin1Char('d') ||
                    c == QLatin1Char('D')) &&
                   seenDigit && !seenExp) {
            digits += QLatin1Char('E');
            seenExp = true;
        } else {
            break;
        }
    }
    // Cut a dangling exponent or sign that the loop accepted on the way.
    while (!digits.isEmpty() &&
           (digits.endsWith(QLatin1Char('E')) || digits.endsWith(QLatin1Char('-')) ||
            digits.endsWith(QLatin1Char('+'))))
        digits.chop(1);
    if (!seenDigit)
        return 0.0;
    bool ok = false;
    const double d = QLocale::c().toDouble(digits, &ok);
    return ok && std::isfinite(d) ? d : 0.0;
}

double RoundTo(double value, int decimals)
{
    if (decimals < 0)
        decimals = 0;
    if (decimals > 15)
        return value;
    const double scale = std::pow(10.0, decimals);
    const double scaled = value * scale;
    if (!std::isfinite(scaled))
        return value;
    return std::nearbyint(scaled) / scale;
}

QString FormatFixed(double value, int decimals)
{
    decimals = qBound(0, decimals, 30);
    QString s = QString::number(RoundTo(value, decimals), 'f', decimals);
    if (s.startsWith(QLatin1Char('-')) && Val(s) == 0.0)
        s.remove(0, 1); // no "-0.00"
    return s;
}

} // namespace zel

namespace zel {

quint32 CColour(const QVariant &v)
{
    if (v.metaType().id() == QMetaType::QColor) {
        const QColor c = v.value<QColor>();
        if (!c.isValid())
            throw zelError(zelError::InvalidPropertyValue);
        return FromQColor(c);
    }
    const double r = std::nearbyint(CDbl(v));
    if (!std::isfinite(r) || r < double(std::numeric_limits<qint32>::min()) ||
        r > double(std::numeric_limits<quint32>::max()))
        throw zelError(zelError::Overflow);
    const quint32 colour = r < 0 ? quint32(qint32(r)) : quint32(r);
    const quint32 high = colour & 0xFF000000u;
    if (high != 0 && high != 0x80000000u)
        throw zelError(zelError::InvalidPropertyValue);
    return colour;
}

} // namespace zel
