#pragma once

// Where the file explorer puts its parts, in twips, as a plain function so
// that the rules can be checked without widgets.

#include "zelCtrlExport.h"

#include <QRect>

namespace zel {

inline constexpr qint32 FileExpMinWidth = 5000;
inline constexpr qint32 FileExpMinHeight = 3000;
inline constexpr qint32 SplitterMinLeft = 3000;   // the tree keeps at least this much
inline constexpr qint32 SplitterRightKeep = 2000; // the list keeps at least this much
inline constexpr qint32 SplitterWidth = 120;
inline constexpr qint32 FileExpMargin = 120;

// A splitter position under the drag rules: below 3000 it becomes 3000,
// beyond the frame's width minus 2000 it becomes that. A frame width of 0
// (not laid out yet) leaves the right-hand bound out.
ZELCTRL_EXPORT qint32 ClampSplitter(qint64 left, qint32 frameWidth);

struct zelFileExpLayout
{
    QRect Frame;
    QRect Splitter;
    QRect Tree;
    QRect Filters; // empty while the filters are not shown
    QRect List;

    bool operator==(const zelFileExpLayout &) const = default;
};

// The layout of a control width x height twips (raised to the least size
// first); splitterLeft is clamped as when dragging; comboHeight is the
// filter combo's own height.
ZELCTRL_EXPORT zelFileExpLayout LayoutFileExp(qint32 width, qint32 height, qint32 splitterLeft,
                                              bool showFilters, qint32 comboHeight);

} // namespace zel
