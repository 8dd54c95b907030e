#include "wizard/zelWizardLayout.h"

#include <algorithm>

namespace {

// A rectangle whose size never goes below nothing.
QRect rect(qint32 x, qint32 y, qint32 w, qint32 h)
{
    return QRect(x, y, std::max(w, 0), std::max(h, 0));
}

} // namespace

zelWizardButtonsLayout zelPlaceWizardButtons(qint32 frameWidth, const std::array<bool, 4> &visible)
{
    zelWizardButtonsLayout l;
    qint32 left = frameWidth; // left edge of the leftmost visible button
    for (size_t i = 0; i < visible.size(); ++i) {
        if (!visible[i])
            continue;
        left -= zelWizardGap + zelWizardButtonWidth;
        l.Buttons[i] = QRect(left, zelWizardGap, zelWizardButtonWidth, zelWizardButtonHeight);
    }
    const qint32 width = left - zelWizardGap - zelWizardGap;
    l.Comment = rect(zelWizardGap, zelWizardGap, width, zelWizardButtonHeight);
    // The caption takes two fifths, the bar the rest after a gap.
    const qint32 label = std::max(width, 0) * 2 / 5;
    l.ProgressLabel = rect(zelWizardGap, zelWizardGap, label, zelWizardButtonHeight);
    l.ProgressBar = rect(zelWizardGap + label + zelWizardGap, zelWizardGap,
                         width - label - zelWizardGap, zelWizardButtonHeight);
    return l;
}

zelWizardFrameLayout zelLayoutWizard(qint32 width, qint32 height, qint32 pictureWidth,
                                     qint32 headerHeight)
{
    zelWizardFrameLayout l;
    const qint32 bottomTop = height - zelWizardBottomHeight;
    l.Bottom = rect(0, bottomTop, width, zelWizardBottomHeight);
    l.Picture = rect(0, 0, pictureWidth, bottomTop - zelWizardGap);
    l.Header = rect(0, 0, width, headerHeight);
    const qint32 side = std::max(headerHeight - 100, 0);
    l.HeaderPicture = rect(width - 80 - side, 30, side, side);
    l.Title = rect(240, 120, width - side - 660, 300);
    l.Description = rect(480, 420, width - side - 900, headerHeight - 480);
    return l;
}

zelPaneLayout zelSizePane(qint32 paneStyle, qint32 width, qint32 height, qint32 pictureWidth,
                          qint32 headerHeight)
{
    zelPaneLayout l;
    const qint32 column = height - zelWizardBottomHeight - zelWizardGap; // side-picture height
    switch (paneStyle) {
    case ZEL_PaneStyle_Header:
        l.ShowHeader = true;
        l.Pane = rect(0, headerHeight, width, height - headerHeight - zelWizardButtonRow);
        break;
    case ZEL_PaneStyle_None:
        l.Pane = rect(0, 0, width, column);
        break;
    default: {
        l.ShowPicture = true;
        const qint32 left = pictureWidth + zelWizardGap;
        l.Pane = rect(left, zelWizardGap, width - left - zelWizardGap, column - zelWizardGap);
        break;
    }
    }
    return l;
}
