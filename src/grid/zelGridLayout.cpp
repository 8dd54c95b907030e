#include "grid/zelGridLayout.h"

#include <algorithm>
#include <limits>

namespace {

// QRect keeps its right and bottom edges as x + w - 1 in an int; an absurd
// margin must give an absurd but representable rectangle, not an overflow.
constexpr qint64 zelLayoutLimit = std::numeric_limits<qint32>::max() / 2;

qint32 bounded(qint64 v, qint64 low)
{
    return qint32(std::clamp<qint64>(v, low, zelLayoutLimit));
}

QRect rect(qint64 x, qint64 y, qint64 w, qint64 h)
{
    return QRect(bounded(x, -zelLayoutLimit), bounded(y, -zelLayoutLimit), bounded(w, 0),
                 bounded(h, 0));
}

} // namespace

zelGridListLayout zelLayoutGridList(const zelGridListLayoutInput &in)
{
    zelGridListLayout out;
    const qint64 w = std::max(0, in.Width);
    const qint64 h = std::max(0, in.Height);
    const qint64 m = std::max(0, in.Margin);
    const qint64 top = std::max(0, in.TopMargin);

    out.CaptionVisible = in.HasCaption;
    out.Caption = rect(m, 0, w - 2 * m, top);

    const bool anyButtons = (in.ButtonsVisible & 0xFF) != 0;
    if (!anyButtons) {
        out.Grid = rect(m, top, w - 2 * m, h - top - m);
        return out;
    }

    const qint64 bh = std::max(0, in.ButtonHeight);
    auto index = [](zelGridButton b) { return size_t(b); };

    if (in.ButtonsOnSide) {
        const qint64 bw = std::max(0, in.ButtonWidth);
        const qint64 x = w - m - bw;
        out.Grid = rect(m, top, x - 2 * m, h - top - m);
        qint64 y = top;
        const std::pair<zelGridButton, qint32> own[] = {
            {zelGridButton::Add, 8}, {zelGridButton::Edit, 2}, {zelGridButton::Delete, 4}};
        bool placed = false;
        for (const auto &[button, bit] : own) {
            if (!(in.ButtonsVisible & bit))
                continue;
            out.ButtonVisible[index(button)] = true;
            out.Buttons[index(button)] = rect(x, y, bw, bh);
            y += bh + zelGridButtonGap;
            placed = true;
        }
        if (placed)
            y += zelGridButtonGroupGap - zelGridButtonGap;
        for (const zelGridButton button : {zelGridButton::Up, zelGridButton::Down}) {
            out.ButtonVisible[index(button)] = true;
            out.Buttons[index(button)] = rect(x, y, bw, bh);
            y += bh + zelGridButtonGap;
        }
        return out;
    }

    // Buttons below: the bar at the right, the move buttons (square) at the
    // left of the same row.
    const qint64 rowHeight = std::max<qint64>(bh, in.BarSize.height());
    const qint64 y = h - m - rowHeight;
    out.Grid = rect(m, top, w - 2 * m, y - m - top);
    out.BarVisible = true;
    out.Bar = rect(w - m - in.BarSize.width(), y, in.BarSize.width(), in.BarSize.height());
    out.ButtonVisible[index(zelGridButton::Up)] = true;
    out.Buttons[index(zelGridButton::Up)] = rect(m, y, bh, bh);
    out.ButtonVisible[index(zelGridButton::Down)] = true;
    out.Buttons[index(zelGridButton::Down)] = rect(m + bh + zelGridButtonGap, y, bh, bh);
    return out;
}
