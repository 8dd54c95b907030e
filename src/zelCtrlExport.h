#pragma once

// The library is built with hidden symbols: only what carries ZELCTRL_EXPORT
// is part of its binary interface. ZEL_BUILDING_LIBRARY is set (privately)
// while the library itself is compiled.

#include <QtCore/qglobal.h>

#if defined(ZEL_BUILDING_LIBRARY)
#define ZELCTRL_EXPORT Q_DECL_EXPORT
#else
#define ZELCTRL_EXPORT Q_DECL_IMPORT
#endif
