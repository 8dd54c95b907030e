#pragma once

// Where a toolbar sits and what a tool is. The members live in a namespace
// of their own for the meta-object system and are brought to global scope
// below, so hosts write ZEL_Toolbar_DockedTop as they would anywhere.

#include "zelCtrlExport.h"

#include <QObject>

namespace ZEL_Toolbar {
Q_NAMESPACE_EXPORT(ZELCTRL_EXPORT)

enum ZEL_Toolbar_DockedPositions : int
{
    ZEL_Toolbar_DockedTop = 0,
    ZEL_Toolbar_DockedBottom = 1,
    ZEL_Toolbar_DockedLeft = 2,
    ZEL_Toolbar_DockedRight = 3,
    ZEL_Toolbar_Floating = 4,
};
Q_ENUM_NS(ZEL_Toolbar_DockedPositions)

enum ZEL_Toolbar_ToolTypes : int
{
    ZEL_Toolbar_ToolButton = 0,
    ZEL_Toolbar_ToolCheck = 1,  // stays pressed until clicked again
    ZEL_Toolbar_ToolOption = 2, // one of a group: pressing it releases the others
    ZEL_Toolbar_ToolMenu = 3,   // opens its child tools
    ZEL_Toolbar_ToolSeparator = 4,
    ZEL_Toolbar_ToolLabel = 5, // text only; never clicked
};
Q_ENUM_NS(ZEL_Toolbar_ToolTypes)

} // namespace ZEL_Toolbar

using ZEL_Toolbar::ZEL_Toolbar_DockedPositions;
using ZEL_Toolbar::ZEL_Toolbar_ToolTypes;
using enum ZEL_Toolbar::ZEL_Toolbar_DockedPositions;
using enum ZEL_Toolbar::ZEL_Toolbar_ToolTypes;
