#pragma once

// One synchronised folder: a local folder kept in step with a second folder
// in one direction or both, for the files that match a pattern. A plain
// description; zelSyncFolderList previews and runs it.

#include "core/zelShared.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

namespace ZEL_Sync {
Q_NAMESPACE_EXPORT(ZELCTRL_EXPORT)

enum ZEL_SyncDirections : int
{
    ZEL_SyncBothWays = 0,
    ZEL_SyncToSecond = 1,
    ZEL_SyncFromSecond = 2,
};
Q_ENUM_NS(ZEL_SyncDirections)

} // namespace ZEL_Sync

using enum ZEL_Sync::ZEL_SyncDirections;
using ZEL_SyncDirections = ZEL_Sync::ZEL_SyncDirections;

class ZELCTRL_EXPORT zelSyncFolder : public zel::SharedObject<zelSyncFolder>
{
    Q_OBJECT
    Q_PROPERTY(QString Name READ Name WRITE SetName)
    Q_PROPERTY(QString LocalFolder READ LocalFolder WRITE SetLocalFolder)
    Q_PROPERTY(QString SecondFolder READ SecondFolder WRITE SetSecondFolder)
    Q_PROPERTY(QVariant Direction READ Direction WRITE SetDirection)
    Q_PROPERTY(QString Pattern READ Pattern WRITE SetPattern)
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QDateTime LastSync READ LastSync)

public:
    Q_INVOKABLE explicit zelSyncFolder(QObject *parent = nullptr);
    ~zelSyncFolder() override;

    // The folder's key once it is in a list; the list's form keeps it unique.
    QString Name() const { return m_name; }
    void SetName(const QString &v) { m_name = v; }
    QString LocalFolder() const { return m_local; }
    void SetLocalFolder(const QString &v) { m_local = v; }
    QString SecondFolder() const { return m_second; }
    void SetSecondFolder(const QString &v) { m_second = v; }
    // Both ways by default; a value that is no direction is refused (380).
    ZEL_SyncDirections Direction() const { return m_direction; }
    void SetDirection(const QVariant &v);
    // Wildcards separated by ";" ("*.shp;*.dbf"); empty (the default): all files.
    QString Pattern() const { return m_pattern; }
    void SetPattern(const QString &v) { m_pattern = v; }
    QStringList Patterns() const;
    // True by default; a list runs only its enabled folders.
    bool Enabled() const { return m_enabled; }
    void SetEnabled(const QVariant &v);
    // The end of the last run that finished (invalid: never run).
    QDateTime LastSync() const { return m_lastSync; }
    void SetLastSync(const QDateTime &v) { m_lastSync = v; }

    // Why the folder cannot be run as it stands ("" when it can): a folder
    // missing or unreadable, both the same folder, or one inside the other.
    Q_INVOKABLE QString Check() const;
    // A copy that no list holds.
    std::shared_ptr<zelSyncFolder> Clone() const;

private:
    QString m_name;
    QString m_local;
    QString m_second;
    ZEL_SyncDirections m_direction = ZEL_SyncBothWays;
    QString m_pattern;
    bool m_enabled = true;
    QDateTime m_lastSync;
};
