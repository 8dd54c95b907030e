#include "legend/zelClassifier.h"

#include "core/mLog.h"
#include "core/zelConvert.h"
#include "core/zelNumberFormat.h"
#include "legend/zelRangeEditor.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QSequentialIterable>

#include <cmath>
#include <limits>

ZEL_REGISTER_PROGID(zelClassifier);

namespace {

// A host's values as numbers: a list of them or one alone. What does not
// read as a number counts as NaN, so that it is left out and noted with the
// other values that are not numbers.
std::vector<double> numbersOf(const QVariant &v)
{
    std::vector<double> out;
    auto one = [&out](const QVariant &x) {
        double d = std::numeric_limits<double>::quiet_NaN();
        try {
            d = zel::CDbl(x);
        } catch (const zelError &) {
        }
        out.push_back(d);
    };
    const int type = v.metaType().id();
    if (!v.isValid())
        return out;
    if (type != QMetaType::QString && type != QMetaType::QByteArray &&
        v.canConvert<QSequentialIterable>()) {
        const QSequentialIterable list = v.value<QSequentialIterable>();
        for (const QVariant &x : list)
            one(x);
    } else {
        one(v);
    }
    return out;
}

// A note in the error trail that does not stop the procedure.
void note(const zel::Trail &t, const QString &text)
{
    mLog::ErrorLog(t.Name(), zelError(zelError::InvalidProcedureCall, {}, text), t.Step, false);
}

} // namespace

zelClassifier::zelClassifier(QObject *parent) : QObject(parent) {}

zelClassifier::~zelClassifier() = default;

const zel::zelPropertyTable &zelClassifier::Properties() const
{
    using C = zelClassifier;
    using zel::Prop;
    static const zel::zelPropertyTable table({
        Prop("Method", &C::Method, &C::SetMethod)
            .Default(qint32(ZEL_Classify_NaturalBreaks))
            .With(zel::Init),
        Prop("ClassCount", &C::ClassCount, &C::SetClassCount).Default(qint32(5)).With(zel::Init),
        Prop("StartColor", &C::StartColor, &C::SetStartColor)
            .Default(quint32(0x00CCFFFF))
            .With(zel::Init),
        Prop("EndColor", &C::EndColor, &C::SetEndColor)
            .Default(quint32(0x002600BD))
            .With(zel::Init),
    });
    return table;
}

void zelClassifier::SetMethod(qint32 v)
{
    Let(
        "Method", m_method,
        [&] {
            if (v < ZEL_Classify_EqualInterval || v > ZEL_Classify_NaturalBreaks)
                throw zelError(zelError::InvalidPropertyValue);
            return v;
        },
        [] {});
}

void zelClassifier::SetClassCount(qint32 v)
{
    Let(
        "ClassCount", m_classes,
        [&] {
            if (v < 1 || v > zel::zelMaxClasses)
                throw zelError(zelError::InvalidPropertyValue, {},
                               QStringLiteral("A class count must lie between 1 and %1, not %2")
                                   .arg(zel::zelMaxClasses)
                                   .arg(v));
            return v;
        },
        [] {});
}

void zelClassifier::SetStartColor(quint32 v)
{
    Let("StartColor", m_start, v);
}

void zelClassifier::SetEndColor(quint32 v)
{
    Let("EndColor", m_end, v);
}

std::vector<double> zelClassifier::breaksOf(const zel::zelBreakValues &v, const zel::Trail &t) const
{
    if (v.Skipped)
        note(t, QStringLiteral("%1 of %2 values are not numbers and were left out")
                    .arg(v.Skipped)
                    .arg(v.Skipped + v.Sorted.size()));
    if (v.Sorted.empty())
        throw zelError(zelError::InvalidProcedureCall, {},
                       QStringLiteral("There are no values to classify"));
    if (v.Distinct < std::size_t(m_classes))
        note(t, QStringLiteral("Only %1 distinct values for %2 classes: one class per value")
                    .arg(v.Distinct)
                    .arg(m_classes));
    return zel::ClassBreaks(ZEL_ClassifyMethods(m_method), v.Sorted, m_classes);
}

std::vector<double> zelClassifier::Classify(std::span<const double> values)
{
    zel::Trail t(this, "Classify");
    std::vector<double> breaks;
    t.Run([&] {
        t.Step = QStringLiteral("Preparing values");
        const zel::zelBreakValues v = zel::PrepareBreakValues(values);
        t.Step = QStringLiteral("Classing");
        breaks = breaksOf(v, t);
        t.Step = QStringLiteral("Finished");
    });
    return breaks;
}

QVariantList zelClassifier::Classify(const QVariant &vValues)
{
    QVariantList out;
    for (double b : Classify(numbersOf(vValues)))
        out << b;
    return out;
}

bool zelClassifier::Fill(zelRangeEditor &editor, std::span<const double> values)
{
    zel::Trail t(this, "Fill");
    bool filled = false;
    t.Run([&] {
        t.Step = QStringLiteral("Preparing values");
        const zel::zelBreakValues v = zel::PrepareBreakValues(values);
        t.Step = QStringLiteral("Classing");
        std::vector<double> b = breaksOf(v, t);
        const bool onValues =
            m_method == ZEL_Classify_Quantile || m_method == ZEL_Classify_NaturalBreaks;
        if (onValues && !editor.IncludeLowerBound())
            b = zel::BreaksBelow(v.Sorted, b);
        t.Step = QStringLiteral("Filling ranges");
        const std::size_t n = b.size() + 1;
        const std::vector<quint32> colours = Colors(int(n));
        const QString format = editor.SrcFormat();
        auto label = [&](std::size_t c) {
            const double lo = c == 0 ? v.Sorted.front() : b[c - 1];
            const double hi = c + 1 == n ? v.Sorted.back() : b[c];
            return zel::FormatNumber(lo, format) + QStringLiteral(" - ") +
                   zel::FormatNumber(hi, format);
        };
        const bool interpolate = editor.Interpolate();
        editor.BeginUpdate();
        struct Ends
        {
            zelRangeEditor &e;
            ~Ends() { e.EndUpdate(); }
        } ends{editor};
        editor.Clear();
        // The first range made is the last class; each later one splits the
        // open top range and takes its lower part.
        editor.Create(v.Sorted.back(), qint32(n), interpolate, colours[n - 1], label(n - 1));
        for (std::size_t c = 0; c + 1 < n; ++c)
            editor.Create(b[c], qint32(c + 1), interpolate, colours[c], label(c));
        t.Step = QStringLiteral("Finished");
        filled = true;
    });
    return filled;
}

bool zelClassifier::Fill(QObject *oEditor, const QVariant &vValues)
{
    auto *editor = qobject_cast<zelRangeEditor *>(oEditor);
    if (!editor) {
        zel::Trail t(this, "Fill");
        t.Run([] { throw zelError(zelError::ObjectRequired); });
        return false;
    }
    return Fill(*editor, numbersOf(vValues));
}

std::vector<quint32> zelClassifier::Colors(int n) const
{
    // A system colour ramps from the colour that it shows.
    return zel::ColourRamp(zel::FromQColor(zel::ToQColor(m_start)),
                           zel::FromQColor(zel::ToQColor(m_end)), n);
}
