#pragma once

// The automatic width of a grid list's first non-boolean column, in twips,
// without a display: what the control's SizeColZero decides from the
// widths it has.

#include "zelCtrlExport.h"

#include <QtGlobal>

#include <vector>

struct zelColZeroInput
{
    bool AutoSize = true;
    // Columns.Count: a list of a single column is never sized.
    qint32 ColumnCount = 0;
    // Per grid column: its width now, and whether it shows check boxes.
    std::vector<qint32> Widths;
    std::vector<bool> Boolean;
    // The Width of each column object, Columns item i + 1 at i.
    std::vector<qint32> ObjectWidths;
    qint32 ClientWidth = 0;

    bool operator==(const zelColZeroInput &) const = default;
};

struct zelColZeroResult
{
    int SizeCol = -1;      // the sized grid column; -1 when none is
    qint64 OtherWidth = 0; // the other columns' widths together
    qint32 ObjectWidth = 0;
    bool Fills = false; // the column takes the room the others leave
    std::vector<qint32> Widths;
};

// The widths after sizing (the input's when nothing is sized). Throws
// zelError 9 when the sized column has no column object.
ZELCTRL_EXPORT zelColZeroResult zelSizeColZero(const zelColZeroInput &in);
