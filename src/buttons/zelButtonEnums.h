#pragma once

// The bit sets that choose the buttons of the two button bars. Bits 1, 2, 4
// and 8 are the bar's own buttons, 16 to 128 the host's option buttons 0 to
// 3; the named combinations are plain sums. The members live in a namespace
// of their own for the meta-object system and are brought to global scope
// below, so hosts write ZEL_StdButton_OKCancel as they would anywhere.

#include "zelCtrlExport.h"

#include <QObject>

namespace ZEL_Buttons {
Q_NAMESPACE_EXPORT(ZELCTRL_EXPORT)

enum ZEL_StdButtons : int
{
    ZEL_StdButton_None = 0,
    ZEL_StdButton_Help = 1,
    ZEL_StdButton_Apply = 2,
    ZEL_StdButton_ApplyHelp = 3,
    ZEL_StdButton_Cancel = 4,
    ZEL_StdButton_CancelHelp = 5,
    ZEL_StdButton_CancelApply = 6,
    ZEL_StdButton_CancelApplyHelp = 7,
    ZEL_StdButton_OK = 8,
    ZEL_StdButton_OKHelp = 9,
    ZEL_StdButton_OKApply = 10,
    ZEL_StdButton_OKApplyHelp = 11,
    ZEL_StdButton_OKCancel = 12,
    ZEL_StdButton_OKCancelHelp = 13,
    ZEL_StdButton_OKCancelApply = 14,
    ZEL_StdButton_All = 15,
    ZEL_StdButton_Option0 = 16,
    ZEL_StdButton_Option1 = 32,
    ZEL_StdButton_Option2 = 64,
    ZEL_StdButton_Option3 = 128,
};
Q_ENUM_NS(ZEL_StdButtons)

enum ZEL_PrpButtons : int
{
    ZEL_PrpButton_None = 0,
    ZEL_PrpButton_Help = 1,
    ZEL_PrpButton_Props = 2,
    ZEL_PrpButton_PropsHelp = 3,
    ZEL_PrpButton_Remove = 4,
    ZEL_PrpButton_RemoveHelp = 5,
    ZEL_PrpButton_RemoveProps = 6,
    ZEL_PrpButton_RemovePropsHelp = 7,
    ZEL_PrpButton_Add = 8,
    ZEL_PrpButton_AddHelp = 9,
    ZEL_PrpButton_AddProps = 10,
    ZEL_PrpButton_AddPropsHelp = 11,
    ZEL_PrpButton_AddRemove = 12,
    ZEL_PrpButton_AddRemoveHelp = 13,
    ZEL_PrpButton_AddRemoveProps = 14,
    ZEL_PrpButton_All = 15,
    ZEL_PrpButton_Option0 = 16,
    ZEL_PrpButton_Option1 = 32,
    ZEL_PrpButton_Option2 = 64,
    ZEL_PrpButton_Option3 = 128,
};
Q_ENUM_NS(ZEL_PrpButtons)

// Combining members keeps the type, so that a combination can be passed
// where the bit set is asked for: ZEL_StdButton_OK | ZEL_StdButton_Option0.
constexpr ZEL_StdButtons operator|(ZEL_StdButtons a, ZEL_StdButtons b)
{
    return ZEL_StdButtons(int(a) | int(b));
}
constexpr ZEL_PrpButtons operator|(ZEL_PrpButtons a, ZEL_PrpButtons b)
{
    return ZEL_PrpButtons(int(a) | int(b));
}

} // namespace ZEL_Buttons

using ZEL_Buttons::ZEL_PrpButtons;
using ZEL_Buttons::ZEL_StdButtons;
using enum ZEL_Buttons::ZEL_StdButtons;
using enum ZEL_Buttons::ZEL_PrpButtons;
