#pragma once

// Layout helpers shared by the record lists' drop-downs.

#include "zelCtrlExport.h"

#include <QtGlobal>

namespace mMain {

// Height in pixels of a drop-down list showing lRows rows (at least one),
// with room for up to two extra bands: the first counts towards the cap of
// 194, the second comes on top of it. An overflow is logged and gives 0.
ZELCTRL_EXPORT qint32 MinHeightList(qint32 lRows, bool bFirstBand, bool bSecondBand);

} // namespace mMain
