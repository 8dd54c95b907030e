#pragma once

// Class breaks of a classified legend, as plain functions on a host's
// numbers. Every method answers the inner breaks of its classes: ascending,
// strictly between the least value (excluded) and the greatest (included),
// each the lower bound of the class above it, so that a range holding
// min <= value < max holds exactly its class and the first and the last
// class stay open towards the ends. Fewer distinct values than classes give
// one class per distinct value, whatever the method.

#include "zelCtrlExport.h"

#include <QObject>

#include <cstddef>
#include <span>
#include <vector>

namespace ZEL_Classify {
Q_NAMESPACE_EXPORT(ZELCTRL_EXPORT)

// How a classifier places its breaks.
enum ZEL_ClassifyMethods : int
{
    // Classes of the same width between the least and the greatest value.
    ZEL_Classify_EqualInterval = 0,
    // Classes that hold as many values as the others, as far as ties allow.
    ZEL_Classify_Quantile = 1,
    // Classes one standard deviation wide around the mean.
    ZEL_Classify_StdDeviation = 2,
    // Classes of a round width (1, 2, 2.5 or 5 times a power of ten).
    ZEL_Classify_Pretty = 3,
    // The partition with the least sum of squared distances of the values
    // from their class means (exact one-dimensional k-means).
    ZEL_Classify_NaturalBreaks = 4,
};
Q_ENUM_NS(ZEL_ClassifyMethods)

} // namespace ZEL_Classify

using ZEL_Classify::ZEL_ClassifyMethods;
using enum ZEL_Classify::ZEL_ClassifyMethods;

namespace zel {

// No legend reads with more classes than this; the limit also keeps the
// natural breaks' table of split points in bounds.
inline constexpr int zelMaxClasses = 256;

// A host's values readied for classing.
struct zelBreakValues
{
    std::vector<double> Sorted; // the finite values, ascending
    std::size_t Skipped = 0;    // NaN and infinities, left out
    std::size_t Distinct = 0;   // distinct values among Sorted
};

ZELCTRL_EXPORT zelBreakValues PrepareBreakValues(std::span<const double> values);

// The inner breaks of at most iClasses classes of sorted (ascending, finite,
// not empty) by a method. Throws zelError 5 for a class count outside 1 to
// zelMaxClasses or no values, 7 when natural breaks of so many distinct
// values into so many classes would need more memory than a host can spare.
ZELCTRL_EXPORT std::vector<double> ClassBreaks(ZEL_ClassifyMethods eMethod,
                                               std::span<const double> sorted, int iClasses);

ZELCTRL_EXPORT std::vector<double> EqualIntervalBreaks(std::span<const double> sorted,
                                                       int iClasses);
// Class c (from 0) holds the values at sorted positions c n / k up to
// (c + 1) n / k; a break that ties with the one below is left out.
ZELCTRL_EXPORT std::vector<double> QuantileBreaks(std::span<const double> sorted, int iClasses);
// Quantile and natural breaks sit on values. For ranges that hold
// min < value <= max, the same classes have their breaks on the greatest
// value of the class below: each break of breaks moved down so.
ZELCTRL_EXPORT std::vector<double> BreaksBelow(std::span<const double> sorted,
                                               const std::vector<double> &breaks);
// Breaks at the mean plus (c - k / 2) population standard deviations, so an
// odd count centres a class on the mean and an even count breaks there.
ZELCTRL_EXPORT std::vector<double> StdDeviationBreaks(std::span<const double> sorted, int iClasses);
// The multiples of the least round width that makes no more than iClasses
// classes.
ZELCTRL_EXPORT std::vector<double> PrettyBreaks(std::span<const double> sorted, int iClasses);
// Exact on all values in O(k m log m) for m distinct values: the distinct
// values with their counts, prefix sums of counts, values and squares, and
// one dynamic-programming layer per class whose best split points rise with
// the position (the cost is a Monge array), found by divide and conquer.
ZELCTRL_EXPORT std::vector<double> NaturalBreaks(std::span<const double> sorted, int iClasses);

// n colours (0x00BBGGRR) from colour a to colour b, channel by channel.
ZELCTRL_EXPORT std::vector<quint32> ColourRamp(quint32 a, quint32 b, int n);

} // namespace zel
