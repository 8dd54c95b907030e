#pragma once

// Whole groups of the per-user settings store (the file SettingsFile(User)),
// for classes that keep a list of their own there: a group such as
// "SyncFolders/<application>" stands for the key
// "Software\Quorvane\SyncFolders\<application>".

#include "zelCtrlExport.h"

#include <QString>
#include <QVariantMap>

namespace zel {

// Every value below group, keyed by its path below the group ("Folder1/Name").
ZELCTRL_EXPORT QVariantMap ReadUserGroup(const QString &group);
// Replaces whatever is below group by values; false when the store could not
// be written (and then error says why).
ZELCTRL_EXPORT bool WriteUserGroup(const QString &group, const QVariantMap &values, QString &error);

} // namespace zel
