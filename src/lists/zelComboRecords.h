#pragma once

// The records of a combo, a tree list or a combo tree, in the order they
// were added, keyed by Key (letter case ignored). Hosts read it; only the
// controls of the library add, remove and clear, so the class has no
// program identifier.

#include "core/zelShared.h"
#include "grid/zelGridEnumerator.h"
#include "lists/zelComboRecord.h"
#include "lists/zelRecordStore.h"

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

    // Walks the records in order, making each record's object as it comes.
    class const_iterator
    {
    public:
        const_iterator(zel::zelRecordStore *store, int position)
            : m_store(store), m_position(position)
        {}
        Ptr operator*() const { return m_store->Object(m_store->RecordAt(m_position)); }
        const_iterator &operator++()
        {
            ++m_position;
            return *this;
        }
        bool operator!=(const const_iterator &o) const { return m_position != o.m_position; }

    private:
        zel::zelRecordStore *m_store;
        int m_position;
    };

    explicit zelComboRecords(QObject *parent = nullptr);
    ~zelComboRecords() override;

    // By key (a string) or by 1-based position (a number); nothing, without
    // an error, for anything else.
    Q_INVOKABLE std::shared_ptr<zelComboRecord> Item(const QVariant &vKey) const;
    Q_INVOKABLE qint32 Count() const { return m_store->RecordCount(); }
    // Walks the records present when it was taken; a Clear ends the walk.
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;

    const_iterator begin() const { return {m_store.get(), 1}; }
    const_iterator end() const { return {m_store.get(), m_store->RecordCount() + 1}; }

    // For the controls of the library only.
    //
    // The entries of the records, shared with the row model that shows them.
    const std::shared_ptr<zel::zelRecordStore> &Store() const { return m_store; }
    // A new record with this key, data and tag; its Parent is the record
    // under sParentKey when there is one. Nothing when the key is taken.
    Ptr CreateRecord(const QString &sKey, const QString &sData, const QVariant &oTag,
                     const QString &sParentKey);
    // CreateRecord without making the object: the new entry's number, 0
    // when the key is taken.
    int CreateEntry(const QString &sKey, const QString &sData, const QVariant &oTag,
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
    void ClearRecords() { m_store->Clear(); }

private:
    int entryOf(const QVariant &vKey) const;

    std::shared_ptr<zel::zelRecordStore> m_store;
};
