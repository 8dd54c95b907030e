#include "core/zelNumberFormat.h"

#include <QStringList>

#include <cmath>
#include <optional>
#include <vector>

namespace zel {

namespace {

struct Token
{
    enum Kind
    {
        Literal,
        Digit, // '0' or '#'
        Point,
        Percent,
        Exponent,
        Comma, // grouping or scaling, decided once the section is read
    } kind;
    QString text;       // the literal, or "E+" / "E-" / "e+" / "e-"
    QChar digit = {};   // '0' or '#'
    bool inExp = false; // a digit of the exponent
    bool inFrac = false;
};

struct Section
{
    std::vector<Token> tokens;
    bool grouping = false;
    int scale = 0; // thousands divided away
    int percents = 0;
    bool exponent = false;
    bool hasDigits = false;
    bool letters = false; // unquoted letters: not a number format
};

// Splits a format into sections at ";" outside quotes; nothing when broken.
std::optional<QStringList> splitSections(const QString &f)
{
    QStringList out;
    QString cur;
    bool quoted = false;
    for (qsizetype i = 0; i < f.size(); ++i) {
        const QChar c = f.at(i);
        if (c == QLatin1Char('"'))
            quoted = !quoted;
        else if (c == QLatin1Char('\\') && !quoted) {
            if (i + 1 >= f.size())
                return std::nullopt;
            cur += c;
            cur += f.at(++i);
            continue;
        } else if (c == QLatin1Char(';') && !quoted) {
            out << cur;
            cur.clear();
            continue;
        }
        cur += c;
    }
    if (quoted)
        return std::nullopt;
    out << cur;
    return out;
}

Section parse(const QString &s)
{
    Section sec;
    bool frac = false, exp = false;
    auto literal = [&](const QString &t) {
        if (!sec.tokens.empty() && sec.tokens.back().kind == Token::Literal)
            sec.tokens.back().text += t;
        else
            sec.tokens.push_back({Token::Literal, t});
    };
    for (qsizetype i = 0; i < s.size(); ++i) {
        const QChar c = s.at(i);
        const QChar next = i + 1 < s.size() ? s.at(i + 1) : QChar();
        if (c == QLatin1Char('"')) {
            const qsizetype end = s.indexOf(QLatin1Char('"'), i + 1);
            literal(s.mid(i + 1, end - i - 1));
            i = end;
        } else if (c == QLatin1Char('\\')) {
            literal(QString(next));
            ++i;
        } else if (c == QLatin1Char('0') || c == QLatin1Char('#')) {
            Token t{Token::Digit, {}, c, exp, frac && !exp};
            sec.tokens.push_back(t);
            sec.hasDigits = sec.hasDigits || !exp;
        } else if (c == QLatin1Char('.') && !frac && !exp) {
            frac = true;
            sec.tokens.push_back({Token::Point, {}});
        } else if (c == QLatin1Char(',') && !frac && !exp) {
            // Between digit placeholders it groups; before the point or the
            // end of the digits it scales (decided once all is read).
            sec.tokens.push_back({Token::Comma, {}});
        } else if (c == QLatin1Char('%')) {
            ++sec.percents;
            sec.tokens.push_back({Token::Percent, QStringLiteral("%")});
        } else if ((c == QLatin1Char('E') || c == QLatin1Char('e')) && !exp &&
                   (next == QLatin1Char('+') || next == QLatin1Char('-')) && sec.hasDigits) {
            exp = sec.exponent = true;
            sec.tokens.push_back({Token::Exponent, QString(c) + next});
            ++i;
        } else {
            if (c.isLetter())
                sec.letters = true;
            literal(QString(c));
        }
    }
    // Commas: grouping when a digit placeholder follows, scaling otherwise.
    std::vector<Token> kept;
    for (size_t i = 0; i < sec.tokens.size(); ++i) {
        Token &t = sec.tokens[i];
        if (t.kind == Token::Comma) {
            bool digitBefore = false, digitAfter = false;
            for (size_t j = 0; j < i; ++j)
                digitBefore = digitBefore || sec.tokens[j].kind == Token::Digit;
            for (size_t j = i + 1; j < sec.tokens.size(); ++j) {
                if (sec.tokens[j].kind == Token::Digit) {
                    digitAfter = true;
                    break;
                }
                if (sec.tokens[j].kind == Token::Point || sec.tokens[j].kind == Token::Exponent)
                    break;
            }
            if (digitBefore && digitAfter)
                sec.grouping = true;
            else if (digitBefore)
                ++sec.scale;
            else
                kept.push_back({Token::Literal, QStringLiteral(",")});
            continue;
        }
        kept.push_back(t);
    }
    sec.tokens = std::move(kept);
    return sec;
}

// Rounds half away from zero to decimals places and answers the digits
// before and after the point.
void digitsOf(double v, int decimals, QString &whole, QString &fraction)
{
    const double p = std::pow(10.0, decimals);
    double r = std::round(v * p) / p;
    if (!std::isfinite(r))
        r = v;
    const QString s = QString::number(r, 'f', decimals);
    const qsizetype dot = s.indexOf(QLatin1Char('.'));
    whole = dot < 0 ? s : s.left(dot);
    fraction = dot < 0 ? QString() : s.mid(dot + 1);
}

// v / 10^e in two steps, so that neither power overflows or vanishes for
// numbers near the ends of the double range.
double scaleDown(double v, int e)
{
    const int half = e / 2;
    return v / std::pow(10.0, half) / std::pow(10.0, e - half);
}

QString group(const QString &digits)
{
    QString out;
    const qsizetype n = digits.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0)
            out += QLatin1Char(',');
        out += digits.at(i);
    }
    return out;
}

QString render(const Section &sec, const double value)
{
    double v = value;
    for (int i = 0; i < sec.percents; ++i)
        v *= 100.0;
    for (int i = 0; i < sec.scale; ++i)
        v /= 1000.0;
    // So many percent signs that the number left the double range.
    if (!std::isfinite(v))
        return PlainNumber(value);
    int intZeros = 0, intPlaces = 0, fracPlaces = 0, fracZeros = 0, expZeros = 0;
    bool leadingZero = false;
    for (const Token &t : sec.tokens) {
        if (t.kind != Token::Digit)
            continue;
        if (t.inExp) {
            expZeros += t.digit == QLatin1Char('0');
        } else if (t.inFrac) {
            ++fracPlaces;
            if (t.digit == QLatin1Char('0'))
                fracZeros = fracPlaces;
        } else {
            ++intPlaces;
            if (t.digit == QLatin1Char('0'))
                leadingZero = true;
            if (leadingZero)
                ++intZeros;
        }
    }
    int exponent = 0;
    if (sec.exponent && v != 0.0) {
        const int lead = std::max(intPlaces, 1);
        exponent = int(std::floor(std::log10(v))) - (lead - 1);
        double m = scaleDown(v, exponent);
        // Rounding may carry into one more digit than the placeholders show.
        QString w, f;
        digitsOf(m, fracPlaces, w, f);
        if (w.size() > lead) {
            ++exponent;
            m = scaleDown(v, exponent);
        }
        v = m;
    }
    QString whole, fraction;
    digitsOf(v, fracPlaces, whole, fraction);
    if (whole == QLatin1String("0") && intZeros == 0)
        whole.clear();
    while (whole.size() < intZeros)
        whole.prepend(QLatin1Char('0'));
    while (fraction.size() > fracZeros && fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    if (sec.grouping)
        whole = group(whole);

    QString out;
    bool wholeDone = false, fracDone = false, expDone = false;
    for (const Token &t : sec.tokens) {
        switch (t.kind) {
        case Token::Literal:
        case Token::Percent:
        case Token::Comma:
            out += t.text;
            break;
        case Token::Point:
            if (!wholeDone) {
                out += whole;
                wholeDone = true;
            }
            out += QLatin1Char('.');
            break;
        case Token::Digit:
            if (t.inExp) {
                if (!expDone) {
                    QString e = QString::number(std::abs(exponent));
                    while (e.size() < expZeros)
                        e.prepend(QLatin1Char('0'));
                    out += e;
                    expDone = true;
                }
            } else if (t.inFrac) {
                if (!fracDone) {
                    out += fraction;
                    fracDone = true;
                }
            } else if (!wholeDone) {
                out += whole;
                wholeDone = true;
            }
            break;
        case Token::Exponent:
            if (!wholeDone) {
                out += whole;
                wholeDone = true;
            }
            out += t.text.at(0);
            if (exponent < 0)
                out += QLatin1Char('-');
            else if (t.text.at(1) == QLatin1Char('+'))
                out += QLatin1Char('+');
            break;
        }
    }
    return out;
}

QString named(const QString &format)
{
    static const struct
    {
        const char *name, *format;
    } table[] = {
        {"General Number", ""}, {"Fixed", "0.00"},          {"Standard", "#,##0.00"},
        {"Percent", "0.00%"},   {"Scientific", "0.00E+00"}, {"Currency", "$#,##0.00;($#,##0.00)"},
    };
    for (const auto &n : table)
        if (format.compare(QLatin1String(n.name), Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(n.format);
    return format;
}

bool allZeros(const QString &s)
{
    for (const QChar c : s)
        if (c.isDigit() && c != QLatin1Char('0'))
            return false;
    return true;
}

} // namespace

QString PlainNumber(double value)
{
    if (value == 0.0)
        return QStringLiteral("0");
    QString s = QString::number(value, 'g', 15);
    s.replace(QLatin1Char('e'), QLatin1Char('E'));
    return s;
}

QString FormatNumber(double value, const QString &format)
{
    const QString f = named(format);
    if (f.isEmpty() || !std::isfinite(value))
        return PlainNumber(value);
    const std::optional<QStringList> parts = splitSections(f);
    if (!parts)
        return PlainNumber(value);
    std::vector<Section> sections;
    for (const QString &p : *parts)
        sections.push_back(parse(p));
    for (const Section &s : sections)
        if (s.letters && !s.hasDigits)
            return PlainNumber(value);

    // Which section, and whether the sign is the section's own business.
    size_t which = 0;
    if (value < 0 && sections.size() >= 2 && !(*parts)[1].isEmpty())
        which = 1;
    else if (value == 0 && sections.size() >= 3 && !(*parts)[2].isEmpty())
        which = 2;
    const bool sign = value < 0 && which == 0;
    const Section &sec = sections[which];
    if ((*parts)[qsizetype(which)].isEmpty())
        return PlainNumber(value);
    if (!sec.hasDigits && sec.percents == 0) {
        QString out;
        for (const Token &t : sec.tokens)
            out += t.text;
        return out;
    }
    const QString body = render(sec, std::abs(value));
    return sign && !allZeros(body) ? QLatin1Char('-') + body : body;
}

} // namespace zel
