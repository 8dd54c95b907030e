#pragma once

// Key presses as the classic KeyPress, KeyDown and KeyUp events carry them.

#include "zelCtrlExport.h"
#include <QtGlobal>

class QKeyEvent;

namespace zel {

// The character code that KeyPress carries: 13 for Enter, the typed
// character otherwise (above U+7FFF as a negative number; beyond 16 bits the
// first half of its surrogate pair); 0 for keys that type nothing (arrows, function keys),
// which never reach KeyPress.
ZELCTRL_EXPORT qint16 KeyAscii(const QKeyEvent *e);
// The virtual key code that KeyDown and KeyUp carry; 0 for keys without one.
ZELCTRL_EXPORT qint16 KeyCode(const QKeyEvent *e);
// The Shift argument of KeyDown and KeyUp: 1 Shift, 2 Ctrl, 4 Alt.
ZELCTRL_EXPORT qint16 ShiftState(const QKeyEvent *e);

} // namespace zel
