#include "grid/zelGridSizing.h"

#include "core/zelError.h"

zelColZeroResult zelSizeColZero(const zelColZeroInput &in)
{
    zelColZeroResult r;
    r.Widths = in.Widths;
    const int gridCols = int(in.Widths.size());
    if (!in.AutoSize || in.ColumnCount <= 1 || gridCols < 1)
        return r;
    for (int c = 0; c < gridCols; ++c) {
        const bool boolean = size_t(c) < in.Boolean.size() && in.Boolean[size_t(c)];
        if (r.SizeCol < 0 && !boolean)
            r.SizeCol = c;
        else
            r.OtherWidth += in.Widths[size_t(c)];
    }
    if (r.SizeCol < 0)
        return r;
    if (size_t(r.SizeCol) >= in.ObjectWidths.size())
        throw zelError(zelError::SubscriptOutOfRange);
    r.ObjectWidth = in.ObjectWidths[size_t(r.SizeCol)];
    r.Fills = r.OtherWidth + r.ObjectWidth < in.ClientWidth;
    r.Widths[size_t(r.SizeCol)] = r.Fills ? qint32(in.ClientWidth - r.OtherWidth) : r.ObjectWidth;
    return r;
}
