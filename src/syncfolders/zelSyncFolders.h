#pragma once

// The synchronised folders of a list, keyed by name (letter case ignored).

#include "core/zelKeyedCollection.h"
#include "core/zelShared.h"
#include "grid/zelGridEnumerator.h"
#include "syncfolders/zelSyncFolder.h"

#include <QObject>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelSyncFolders : public zel::SharedObject<zelSyncFolders>
{
    Q_OBJECT
    Q_PROPERTY(qint32 Count READ Count)

public:
    using Collection = zel::zelKeyedCollection<zelSyncFolder>;

    Q_INVOKABLE explicit zelSyncFolders(QObject *parent = nullptr);
    ~zelSyncFolders() override;

    // Appends the folder under its name; false for an empty name or one
    // that is already there. Never raises.
    bool Add(const std::shared_ptr<zelSyncFolder> &oFolder);
    Q_INVOKABLE bool Add(QObject *oFolder);
    // A new enabled folder, added; nothing when the name is empty or taken.
    Q_INVOKABLE std::shared_ptr<zelSyncFolder>
    Create(const QString &sName, const QString &sLocalFolder, const QString &sSecondFolder,
           qint32 eDirection = ZEL_SyncBothWays, const QString &sPattern = QString());
    Q_INVOKABLE bool Remove(const QVariant &vKey);
    // By 1-based position or by name; nothing when there is no such member.
    Q_INVOKABLE std::shared_ptr<zelSyncFolder> Item(const QVariant &vKey) const;
    Q_INVOKABLE qint32 Count() const { return m_items.Count(); }
    Q_INVOKABLE void Clear();
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;

    Collection::const_iterator begin() const { return m_items.begin(); }
    Collection::const_iterator end() const { return m_items.end(); }

private:
    Collection m_items;
};
