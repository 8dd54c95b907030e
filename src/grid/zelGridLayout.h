#pragma once

// Where the grid list puts its parts, in twips, from its size and its
// layout properties: the caption above the grid, the grid, and either the
// property button bar below the grid (with the up and down buttons at the
// left of that row) or a column of buttons to the right of the grid. A
// plain function, so that it can be checked without a display.

#include "zelCtrlExport.h"

#include <QRect>
#include <QSize>

#include <array>

struct zelGridListLayoutInput
{
    qint32 Width = 0;  // the control, twips
    qint32 Height = 0; // the control, twips
    qint32 Margin = 120;
    qint32 TopMargin = 240;
    bool ButtonsOnSide = false;
    qint32 ButtonsVisible = 15; // ZEL_PrpButtons bits
    bool HasCaption = false;
    QSize BarSize;             // the property button bar as it laid itself out
    qint32 ButtonWidth = 1080; // of the buttons beside the grid
    qint32 ButtonHeight = 315;
};

// The buttons of the column beside the grid (and the two move buttons).
enum class zelGridButton
{
    Add,
    Edit,
    Delete,
    Up,
    Down,
};

struct zelGridListLayout
{
    bool CaptionVisible = false;
    QRect Caption;
    QRect Grid;
    bool BarVisible = false;
    QRect Bar;
    std::array<bool, 5> ButtonVisible{};
    std::array<QRect, 5> Buttons;

    bool operator==(const zelGridListLayout &) const = default;
};

inline constexpr qint32 zelGridButtonGap = 60;       // between stacked buttons
inline constexpr qint32 zelGridButtonGroupGap = 180; // before the move buttons

ZELCTRL_EXPORT zelGridListLayout zelLayoutGridList(const zelGridListLayoutInput &in);
