#pragma once

// The enumerations of the wizard framework. The members live in a namespace
// of their own for the meta-object system and are brought to global scope
// below, so hosts write ZEL_WizardDirection_Next as they would anywhere.

#include "zelCtrlExport.h"

#include <QObject>

namespace ZEL_Controls {
Q_NAMESPACE_EXPORT(ZELCTRL_EXPORT)

// Why a pane is entered or left: None on first display, Finish or a jump by name.
enum ZEL_Controls_WizardDirections : int
{
    ZEL_WizardDirection_None = 0,
    ZEL_WizardDirection_Back = 1,
    ZEL_WizardDirection_Next = 2,
};
Q_ENUM_NS(ZEL_Controls_WizardDirections)

// The frame the wizard draws around a pane: its side picture, its header
// band, or neither.
enum ZEL_Controls_PaneStyles : int
{
    ZEL_PaneStyle_Picture = 0,
    ZEL_PaneStyle_Header = 1,
    ZEL_PaneStyle_None = 2,
};
Q_ENUM_NS(ZEL_Controls_PaneStyles)

// Published for hosts; no member of the library takes or returns it.
enum ZEL_Controls_FinishModes : int
{
    ZEL_FinishMode_Finish = 0,
    ZEL_FinishMode_BackNextCancel = 1,
    ZEL_FinishMode_BackCancel = 2,
};
Q_ENUM_NS(ZEL_Controls_FinishModes)

} // namespace ZEL_Controls

using ZEL_Controls::ZEL_Controls_FinishModes;
using ZEL_Controls::ZEL_Controls_PaneStyles;
using ZEL_Controls::ZEL_Controls_WizardDirections;
using enum ZEL_Controls::ZEL_Controls_WizardDirections;
using enum ZEL_Controls::ZEL_Controls_PaneStyles;
using enum ZEL_Controls::ZEL_Controls_FinishModes;
