#include "platform/zelUserSettings.h"

#include "platform/zelPlatform.h"

#include <QSettings>

namespace zel {

QString UserSection(const QString &kind, const QString &application)
{
    QString name = application.trimmed();
    name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    return name.isEmpty() ? QString() : kind + QLatin1Char('/') + name;
}

QVariant ReadUserValue(const QString &section, const QString &key, const QVariant &def)
{
    QSettings s(SettingsFile(SettingsScope::User), QSettings::IniFormat);
    s.beginGroup(section);
    return s.value(key, def);
}

bool WriteUserValue(const QString &section, const QString &key, const QVariant &value)
{
    QSettings s(SettingsFile(SettingsScope::User), QSettings::IniFormat);
    s.beginGroup(section);
    s.setValue(key, value);
    s.endGroup();
    s.sync();
    return s.status() == QSettings::NoError;
}

} // namespace zel
