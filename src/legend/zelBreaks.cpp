#include "legend/zelBreaks.h"

#include "core/zelError.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace zel {

namespace {

// Natural breaks keep one split point per class and distinct value.
constexpr std::size_t kMaxSplitCells = std::size_t(1) << 26;

// Breaks as the file's header promises them: inside (least, greatest],
// strictly ascending.
std::vector<double> kept(const std::vector<double> &breaks, std::span<const double> sorted)
{
    std::vector<double> out;
    out.reserve(breaks.size());
    for (double b : breaks)
        if (std::isfinite(b) && b > sorted.front() && b <= sorted.back() &&
            (out.empty() || b > out.back()))
            out.push_back(b);
    return out;
}

// The width of k equal parts of [lo, hi], also where hi - lo overflows.
double partWidth(double lo, double hi, int k)
{
    const double w = (hi - lo) / k;
    return std::isfinite(w) ? w : hi / k - lo / k;
}

// Distinct values with their counts, centred on the mean so that the sums of
// squares lose as little as they can to cancellation.
struct Weighted
{
    std::vector<double> value;   // distinct values as given
    std::vector<double> W, S, Q; // prefix sums of counts, centred values, their squares
};

Weighted weigh(std::span<const double> sorted)
{
    Weighted d;
    std::vector<double> count;
    for (double x : sorted) {
        if (d.value.empty() || x != d.value.back()) {
            d.value.push_back(x);
            count.push_back(0);
        }
        count.back() += 1;
    }
    // Scaled by a power of two into [-2, 2] first, which is exact: neither
    // the centring nor the squares can overflow or underflow, and the best
    // partition does not change with the scale.
    const double most = std::max(std::abs(sorted.front()), std::abs(sorted.back()));
    const int e = most > 0 ? std::ilogb(most) : 0;
    double mean = 0;
    for (double x : sorted)
        mean += std::ldexp(x, -e) / double(sorted.size());
    const std::size_t m = d.value.size();
    d.W.assign(m + 1, 0);
    d.S.assign(m + 1, 0);
    d.Q.assign(m + 1, 0);
    for (std::size_t i = 0; i < m; ++i) {
        const double c = std::ldexp(d.value[i], -e) - mean;
        d.W[i + 1] = d.W[i] + count[i];
        d.S[i + 1] = d.S[i] + count[i] * c;
        d.Q[i + 1] = d.Q[i] + count[i] * c * c;
    }
    return d;
}

// One layer of the dynamic programme: cur[i] is the least cost of the first
// i distinct values in one class more than prev holds, split[i] where its
// last class begins. Best split points do not fall as i rises, so the middle
// position's best bounds the search on either side.
class Layer
{
public:
    Layer(const Weighted &d, const std::vector<double> &prev, std::vector<double> &cur,
          std::int32_t *split)
        : W(d.W.data()), S(d.S.data()), Q(d.Q.data()), prev(prev.data()), cur(cur.data()),
          split(split)
    {}

    void Solve(std::int64_t iLo, std::int64_t iHi, std::int64_t tLo, std::int64_t tHi)
    {
        while (iLo <= iHi) {
            const std::int64_t mid = iLo + (iHi - iLo) / 2;
            const std::int64_t last = std::min(mid - 1, tHi);
            double best = std::numeric_limits<double>::infinity();
            std::int64_t at = tLo;
            const double wi = W[mid], si = S[mid], qi = Q[mid];
            for (std::int64_t t = tLo; t <= last; ++t) {
                const double s = si - S[t];
                const double c = prev[t] + (qi - Q[t]) - s * s / (wi - W[t]);
                if (c < best) {
                    best = c;
                    at = t;
                }
            }
            cur[mid] = best;
            split[mid] = std::int32_t(at);
            // The smaller half by recursion keeps the depth logarithmic.
            if (mid - iLo < iHi - mid) {
                Solve(iLo, mid - 1, tLo, at);
                iLo = mid + 1;
                tLo = at;
            } else {
                Solve(mid + 1, iHi, at, tHi);
                iHi = mid - 1;
                tHi = at;
            }
        }
    }

private:
    const double *W, *S, *Q, *prev;
    double *cur;
    std::int32_t *split;
};

} // namespace

zelBreakValues PrepareBreakValues(std::span<const double> values)
{
    zelBreakValues v;
    v.Sorted.reserve(values.size());
    for (double x : values)
        if (std::isfinite(x))
            v.Sorted.push_back(x);
    v.Skipped = values.size() - v.Sorted.size();
    std::sort(v.Sorted.begin(), v.Sorted.end());
    for (std::size_t i = 0; i < v.Sorted.size(); ++i)
        if (i == 0 || v.Sorted[i] != v.Sorted[i - 1])
            ++v.Distinct;
    return v;
}

std::vector<double> ClassBreaks(ZEL_ClassifyMethods eMethod, std::span<const double> sorted,
                                int iClasses)
{
    if (iClasses < 1 || iClasses > zelMaxClasses)
        throw zelError(zelError::InvalidProcedureCall, {},
                       QStringLiteral("The class count %1 is not between 1 and %2")
                           .arg(iClasses)
                           .arg(zelMaxClasses));
    if (sorted.empty())
        throw zelError(zelError::InvalidProcedureCall, {},
                       QStringLiteral("There are no values to classify"));
    // Every distinct value but the least breaks, when there are too few.
    std::vector<double> each;
    for (std::size_t i = 1; i < sorted.size() && each.size() + 1 < std::size_t(iClasses); ++i)
        if (sorted[i] != sorted[i - 1])
            each.push_back(sorted[i]);
    if (each.size() + 1 < std::size_t(iClasses))
        return each;
    switch (eMethod) {
    case ZEL_Classify_EqualInterval:
        return EqualIntervalBreaks(sorted, iClasses);
    case ZEL_Classify_Quantile:
        return QuantileBreaks(sorted, iClasses);
    case ZEL_Classify_StdDeviation:
        return StdDeviationBreaks(sorted, iClasses);
    case ZEL_Classify_Pretty:
        return PrettyBreaks(sorted, iClasses);
    case ZEL_Classify_NaturalBreaks:
        return NaturalBreaks(sorted, iClasses);
    }
    throw zelError(zelError::InvalidProcedureCall, {},
                   QStringLiteral("There is no classification method %1").arg(int(eMethod)));
}

std::vector<double> EqualIntervalBreaks(std::span<const double> sorted, int iClasses)
{
    if (sorted.empty())
        return {};
    const double w = partWidth(sorted.front(), sorted.back(), iClasses);
    std::vector<double> b;
    for (int c = 1; c < iClasses; ++c)
        b.push_back(sorted.front() + c * w);
    return kept(b, sorted);
}

std::vector<double> QuantileBreaks(std::span<const double> sorted, int iClasses)
{
    std::vector<double> b;
    for (int c = 1; c < iClasses; ++c)
        b.push_back(sorted[sorted.size() * std::size_t(c) / std::size_t(iClasses)]);
    return sorted.empty() ? b : kept(b, sorted);
}

std::vector<double> BreaksBelow(std::span<const double> sorted, const std::vector<double> &breaks)
{
    std::vector<double> out;
    for (double b : breaks) {
        const auto at = std::lower_bound(sorted.begin(), sorted.end(), b);
        if (at != sorted.begin())
            out.push_back(*(at - 1));
    }
    return out;
}

std::vector<double> StdDeviationBreaks(std::span<const double> sorted, int iClasses)
{
    if (sorted.empty())
        return {};
    const double n = double(sorted.size());
    double mean = 0, ss = 0;
    for (double x : sorted)
        mean += x / n;
    for (double x : sorted)
        ss += (x - mean) / n * (x - mean);
    const double sd = std::sqrt(ss);
    std::vector<double> b;
    for (int c = 1; c < iClasses; ++c)
        b.push_back(mean + (c - iClasses / 2.0) * sd);
    return kept(b, sorted);
}

std::vector<double> PrettyBreaks(std::span<const double> sorted, int iClasses)
{
    if (sorted.empty() || sorted.front() == sorted.back() || iClasses < 2)
        return {};
    const double lo = sorted.front(), hi = sorted.back();
    const double width = partWidth(lo, hi, iClasses);
    const int p = width > 0 ? int(std::floor(std::log10(width))) - 1 : -330;
    static constexpr double kRound[] = {1, 2, 2.5, 5};
    // A power of ten given as an exponent, so that the multiples of 0.1 come
    // out as the round numbers that they read as.
    auto scaled = [](double x, int e) {
        return e >= 0 ? x * std::pow(10.0, e) : x / std::pow(10.0, -e);
    };
    for (int e = p; e <= 330; ++e) {
        for (double r : kRound) {
            const double step = scaled(r, e);
            const double first = std::floor(lo / step) + 1, last = std::ceil(hi / step) - 1;
            if (!(step > 0) || !std::isfinite(first) || !std::isfinite(last) ||
                !(last - first + 2 <= iClasses))
                continue;
            std::vector<double> b;
            for (int j = 0; j <= int(last - first); ++j)
                b.push_back(scaled((first + j) * r, e));
            return kept(b, sorted);
        }
    }
    return {};
}

std::vector<double> NaturalBreaks(std::span<const double> sorted, int iClasses)
{
    if (sorted.empty())
        return {};
    const Weighted d = weigh(sorted);
    const std::int64_t m = std::int64_t(d.value.size());
    const std::int64_t k = iClasses;
    if (k >= m)
        return std::vector<double>(d.value.begin() + 1, d.value.end());
    if (std::size_t(k) * std::size_t(m + 1) > kMaxSplitCells)
        throw zelError(zelError::OutOfMemory, {},
                       QStringLiteral("Natural breaks of %1 distinct values into %2 classes "
                                      "need more memory than is allowed")
                           .arg(m)
                           .arg(k));
    const double inf = std::numeric_limits<double>::infinity();
    std::vector<double> prev(std::size_t(m) + 1, inf), cur(std::size_t(m) + 1, inf);
    for (std::int64_t i = 1; i <= m; ++i) {
        const double s = d.S[i];
        prev[i] = d.Q[i] - s * s / d.W[i];
    }
    // split[(j - 2) * (m + 1) + i]: where class j begins in the best j classes
    // of the first i values.
    std::vector<std::int32_t> split(std::size_t(k - 1) * std::size_t(m + 1), 0);
    for (std::int64_t j = 2; j <= k; ++j) {
        std::fill(cur.begin(), cur.end(), inf);
        // Each later class needs a value of its own; the last layer only
        // answers for all the values.
        const std::int64_t iLo = j == k ? m : j, iHi = m - (k - j);
        Layer(d, prev, cur, split.data() + (j - 2) * (m + 1)).Solve(iLo, iHi, j - 1, iHi - 1);
        std::swap(prev, cur);
    }
    std::vector<double> b(std::size_t(k - 1));
    std::int64_t i = m;
    for (std::int64_t j = k; j >= 2; --j) {
        i = split[std::size_t((j - 2) * (m + 1) + i)];
        b[std::size_t(j - 2)] = d.value[std::size_t(i)];
    }
    return b;
}

std::vector<quint32> ColourRamp(quint32 a, quint32 b, int n)
{
    std::vector<quint32> out;
    for (int i = 0; i < n; ++i) {
        quint32 c = 0;
        for (int shift = 0; shift <= 16; shift += 8) {
            const double x = (a >> shift) & 0xFF, y = (b >> shift) & 0xFF;
            const double f = n > 1 ? double(i) / (n - 1) : 0.0;
            c |= quint32(std::lround(x + (y - x) * f)) << shift;
        }
        out.push_back(c);
    }
    return out;
}

} // namespace zel
