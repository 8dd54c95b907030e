#pragma once

// Values that the library keeps for one application in the per-user
// settings store, each under a section of its own ("Toolbars/<application>"
// standing for the key "Software\Quorvane\Toolbars\<application>"). The
// store is the per-user file of SettingsFile(SettingsScope::User).

#include "zelCtrlExport.h"

#include <QString>
#include <QVariant>

namespace zel {

// The section of an application's values of one kind: the application name
// with the store's separators ('/', '\') taken out, so that no name reaches
// another application's section. Empty for an empty or blank name.
ZELCTRL_EXPORT QString UserSection(const QString &kind, const QString &application);
ZELCTRL_EXPORT QVariant ReadUserValue(const QString &section, const QString &key,
                                      const QVariant &def = QVariant());
// False when the store cannot be written (a read-only or broken file).
ZELCTRL_EXPORT bool WriteUserValue(const QString &section, const QString &key,
                                   const QVariant &value);

} // namespace zel
