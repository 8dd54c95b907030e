#include "files/zelFileExpLayout.h"

#include <algorithm>
#include <limits>

namespace zel {

qint32 ClampSplitter(qint64 left, qint32 frameWidth)
{
    left = std::max<qint64>(left, SplitterMinLeft);
    if (frameWidth > 0)
        left = std::min<qint64>(left, qint64(frameWidth) - SplitterRightKeep);
    return qint32(std::min<qint64>(left, std::numeric_limits<qint32>::max()));
}

zelFileExpLayout LayoutFileExp(qint32 width, qint32 height, qint32 splitterLeft, bool showFilters,
                               qint32 comboHeight)
{
    zelFileExpLayout l;
    const qint32 w = std::max(width, FileExpMinWidth);
    const qint32 h = std::max(height, FileExpMinHeight);
    l.Frame = QRect(0, 0, w, h);
    const qint32 left = ClampSplitter(splitterLeft, w);
    l.Splitter = QRect(left, FileExpMargin, SplitterWidth, h - 2 * FileExpMargin);
    qint32 treeTop = FileExpMargin;
    qint32 treeHeight = h - 3 * FileExpMargin;
    const qint32 column = left - FileExpMargin;
    if (showFilters) {
        l.Filters = QRect(FileExpMargin, FileExpMargin, column, comboHeight);
        treeTop += comboHeight + FileExpMargin;
        treeHeight -= comboHeight + FileExpMargin;
    }
    l.Tree = QRect(FileExpMargin, treeTop, column, std::max(treeHeight, 0));
    const qint32 listLeft = left + SplitterWidth;
    l.List = QRect(listLeft, FileExpMargin, w - listLeft - FileExpMargin, h - 3 * FileExpMargin);
    return l;
}

} // namespace zel
