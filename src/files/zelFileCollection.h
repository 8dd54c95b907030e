#pragma once

// What the file list and the filter collection share: a keyed collection of
// shared members whose key comes from the member itself when it is added
// (FullPath, Key) and stays fixed afterwards, every member run under the
// owning class's trail, and the instance tracking of the diagnostic log.

#include "core/mLog.h"
#include "core/zelKeyedCollection.h"
#include "core/zelTrail.h"
#include "grid/zelGridEnumerator.h"

#include <QObject>
#include <QVariant>

#include <memory>

namespace zel {

template <typename T> class zelFileCollection
{
public:
    using Ptr = std::shared_ptr<T>;
    using Items = zelKeyedCollection<T>;

    zelFileCollection(const QObject *owner, QString (T::*key)() const) : m_owner(owner), m_key(key)
    {
        // Raised on, as the classic initialisation does; the tracker itself never fails.
        Trail t(m_owner, "Class_Initialize");
        t.Run([&] { mLog::TrackerIncr(className()); }, true);
    }
    ~zelFileCollection()
    {
        Trail t(m_owner, "Class_Terminate");
        t.Run([&] { mLog::TrackerDecr(className()); });
    }

    Ptr Item(const QVariant &vKey) const
    {
        Ptr found;
        Trail t(m_owner, "Item Get");
        t.Run([&] { found = m_items.Item(vKey); });
        return found;
    }
    qint32 Count() const { return m_items.Count(); }
    bool Remove(const QVariant &vKey)
    {
        bool removed = false;
        Trail t(m_owner, "Remove");
        t.Run([&] { removed = m_items.Remove(vKey); });
        return removed;
    }
    void Clear() { m_items.Clear(); }
    // False for nothing, an empty key, or a key that is there already.
    bool Add(const Ptr &item)
    {
        bool added = false;
        Trail t(m_owner, "Add");
        t.Run([&] {
            const QString key = item ? (item.get()->*m_key)() : QString();
            added = !key.isEmpty() && m_items.Add(item, key);
        });
        return added;
    }
    std::shared_ptr<zelGridEnumerator> NewEnum() const
    {
        return zelGridEnumerator::Make(m_items.NewEnum());
    }
    const Items &items() const { return m_items; }
    Items &items() { return m_items; }

private:
    QString className() const { return QString::fromLatin1(m_owner->metaObject()->className()); }

    const QObject *m_owner;
    QString (T::*m_key)() const;
    Items m_items;
};

} // namespace zel
