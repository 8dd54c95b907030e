#pragma once

// The utilities' switch for a container: every widget inside it on or off.

#include "zelCtrlExport.h"

class QWidget;

namespace zel {

// Enables or disables every widget inside container, at any depth; the
// container itself keeps its state. Widgets a host had switched off one by
// one are switched on again with the rest.
ZELCTRL_EXPORT void EnableContainer(QWidget *container, bool bEnabled);

} // namespace zel
