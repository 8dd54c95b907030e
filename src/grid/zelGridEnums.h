#pragma once

// The enumerations of the grid list. Their members live in a namespace of
// their own for the meta-object system and are brought to global scope
// below, so hosts write ZEL_ColumnAlignRight as they would anywhere.

#include "zelCtrlExport.h"

#include <QObject>

namespace ZEL_Grid {
Q_NAMESPACE_EXPORT(ZELCTRL_EXPORT)

// Alignment of a column's cells. A column made directly (not through
// zelGridColumns::Create) has 0, which the grid list reads as its own
// default: numbers to the right, text to the left.
enum ZEL_Controls_ColumnAlign : int
{
    ZEL_ColumnAlignLeft = 1,
    ZEL_ColumnAlignRight = 2,
    ZEL_ColumnAlignCenter = 3,
};
Q_ENUM_NS(ZEL_Controls_ColumnAlign)

// When the selected rows of a grid list are highlighted.
enum ZEL_Controls_HighlightSelections : int
{
    ZEL_Highlight_Never = 0,
    ZEL_Highlight_Always = 1,
    ZEL_Highlight_WithFocus = 2,
};
Q_ENUM_NS(ZEL_Controls_HighlightSelections)

} // namespace ZEL_Grid

using ZEL_Grid::ZEL_Controls_ColumnAlign;
using ZEL_Grid::ZEL_Controls_HighlightSelections;
using enum ZEL_Grid::ZEL_Controls_ColumnAlign;
using enum ZEL_Grid::ZEL_Controls_HighlightSelections;

// Column data types the grid list knows by number (the classic variant type
// codes, and 36 for a column whose cells show a colour).
namespace zelGridType {
inline constexpr qint32 Integer = 2;
inline constexpr qint32 Long = 3;
inline constexpr qint32 Single = 4;
inline constexpr qint32 Double = 5;
inline constexpr qint32 Currency = 6;
inline constexpr qint32 Date = 7;
inline constexpr qint32 String = 8;
inline constexpr qint32 Boolean = 11;
inline constexpr qint32 Colour = 36;

inline bool IsNumeric(qint32 t)
{
    return t == Integer || t == Long || t == Single || t == Double || t == Currency;
}
} // namespace zelGridType
