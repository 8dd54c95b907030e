#pragma once

// Pictures that a host names by file: read here, since files are reached
// only through the platform folder.

#include "zelCtrlExport.h"
#include <QImage>
#include <QString>

namespace zel {

// The picture in fileName; a null image when the file is missing, is a
// folder or holds no picture Qt can read. why then says which of these.
ZELCTRL_EXPORT QImage ReadImageFile(const QString &fileName, QString *why = nullptr);

} // namespace zel
