#include "platform/zelSettingsGroup.h"

#include "platform/zelPlatform.h"

#include <QSettings>

namespace zel {

QVariantMap ReadUserGroup(const QString &group)
{
    QSettings s(SettingsFile(SettingsScope::User), QSettings::IniFormat);
    s.beginGroup(group);
    QVariantMap values;
    const QStringList keys = s.allKeys();
    for (const QString &key : keys)
        values.insert(key, s.value(key));
    return values;
}

bool WriteUserGroup(const QString &group, const QVariantMap &values, QString &error)
{
    QSettings s(SettingsFile(SettingsScope::User), QSettings::IniFormat);
    if (!s.isWritable()) {
        error = QStringLiteral("the settings file is not writable: ") + s.fileName();
        return false;
    }
    s.remove(group);
    s.beginGroup(group);
    for (auto it = values.begin(); it != values.end(); ++it)
        s.setValue(it.key(), it.value());
    s.endGroup();
    s.sync();
    // A format error of the file as it was read stays in the status after a
    // write that worked; only an access error means nothing was written.
    if (s.status() != QSettings::AccessError)
        return true;
    error = QStringLiteral("the settings file could not be written: ") + s.fileName();
    return false;
}

} // namespace zel
