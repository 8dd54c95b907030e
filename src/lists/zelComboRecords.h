#pragma once

// The records of a combo, a tree list or a combo tree, in the order they
// were added, keyed by Key (letter case ignored). Hosts read it; only the
// controls of the library add, remove and clear, so the class has no
// program identifier.

#include "core/zelKeyedCollection.h"
#include "core/zelShared.h"
#include "grid/zelGridEnumerator.h"
#include "lists/zelComboRecord.h"

#include <QObject>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelComboRecords : public zel::SharedObject<zelComboRecords>
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Item", "0")
    Q_CLASSINFO("DispId.Count", "0x60030003")
    Q_CLASSINFO("DispId.NewEnum", "-4")
    Q_CLASSINFO("Help.Item",
                "Returns a specific member of a Collection object either by position or key")
    Q_CLASSINFO("Help.Count", "Returns the number of members in a collection")
    Q_PROPERTY(qint32 Count READ Count)

public:
    using Ptr = zelComboRecord::Ptr;
    using Collection = zel::zelKeyedCollection<zelComboRecord>;

    explicit zelComboRecords(QObject *parent = nullptr);
    ~zelComboRecords() override;

    // By key (a string) or by 1-based position (a number); nothing, without
    // an error, for anything else.
    Q_INVOKABLE std::shared_ptr<zelComboRecord> Item(const QVariant &vKey) const;
    Q_INVOKABLE qint32 Count() const { return m_items.Count(); }
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;

    Collection::const_iterator begin() const { return m_items.begin(); }
    Collection::const_iterator end() const { return m_items.end(); }

    // For the controls of the library only.
    //
    // A new record with this key, data and tag; its Parent is the record
    // under sParentKey when there is one. Nothing when the key is taken.
    Ptr CreateRecord(const QString &sKey, const QString &sData, const QVariant &oTag,
                     const QString &sParentKey);
    // False for nothing or a key that is taken; the collection is unchanged then.
    bool AddRecord(const Ptr &record);
    // Removes the record under vKey, then walks the others in order and
    // lets go of the removed record as their Parent. The walk stops at the
    // first record that has no Parent: the result is false then, while the
    // removal stands.
    bool RemoveRecord(const QVariant &vKey);
    // A new empty collection; records held elsewhere live on with their
    // Parent chain.
    void ClearRecords() { m_items.Clear(); }

private:
    Collection m_items;
};
