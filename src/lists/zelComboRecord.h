#pragma once

// One keyed record behind a row of a combo, a tree list or a combo tree: the
// key it was added under, the row's column texts joined by tabs, the host's
// tag, the parent record and the depth. Only the library makes records, so
// the class has no program identifier; a late-bound caller that gets a
// std::shared_ptr<zelComboRecord> in a QVariant can take it as a QObject *.

#include "core/zelShared.h"
#include "lists/zelRecordStore.h"

#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>

namespace zel::detail {
struct ComboRecordAccess;
}

class ZELCTRL_EXPORT zelComboRecord : public zel::SharedObject<zelComboRecord>
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Tag", "0x68030000")
    Q_CLASSINFO("DispId.Data", "0x68030001")
    Q_CLASSINFO("DispId.Key", "0x68030002")
    Q_CLASSINFO("DispId.Parent", "0x68030003")
    Q_CLASSINFO("DispId.Level", "0x68030004")
    Q_PROPERTY(QString Key READ Key)
    Q_PROPERTY(QString Data READ Data WRITE SetData)
    Q_PROPERTY(QVariant Tag READ Tag WRITE SetTag)
    Q_PROPERTY(QObject *Parent READ ParentObject WRITE SetParentObject)
    Q_PROPERTY(qint32 Level READ Level)

public:
    using Ptr = std::shared_ptr<zelComboRecord>;

    explicit zelComboRecord(QObject *parent = nullptr);
    // Lets go of the parent first; a chain of parents that only this record
    // kept alive goes one by one, not by recursion.
    ~zelComboRecord() override;

    // While its row exists the record reads and writes its store's entry;
    // once the rows are gone it keeps a copy of what it read last.
    QString Key() const { return m_store ? m_store->At(m_entry).key : m_key; }
    // Changing Data later changes only this string, never a row already shown.
    QString Data() const { return m_store ? m_store->Data(m_entry) : m_data; }
    void SetData(const QString &v);
    QVariant Tag() const { return m_store ? m_store->Tag(m_entry) : m_tag; }
    void SetTag(const QVariant &v);
    Ptr Parent() const { return m_parent; }
    void SetParent(Ptr p);
    qint32 Level() const { return m_store ? m_store->At(m_entry).level : m_level; }

    // Late-bound Parent: nothing sets none; an object that is not a record
    // is refused with a logged type mismatch and Parent stays as it is.
    QObject *ParentObject() const { return m_parent.get(); }
    void SetParentObject(QObject *o);

private:
    friend struct zel::detail::ComboRecordAccess;
    friend class zel::zelRecordStore;
    // Takes the entry's data and leaves the store.
    void detach();

    zel::zelRecordStore *m_store = nullptr;
    int m_entry = 0;
    QString m_key;
    QString m_data;
    QVariant m_tag;
    Ptr m_parent;
    qint32 m_level = 0;
};

namespace zel::detail {
// What a record reference reaches when its rows went before it was used:
// logged (error 424) and empty.
ZELCTRL_EXPORT zelComboRecord &StaleRecord();

// Key and Level are the library's to set: Key once when the record is
// created, Level by the tree list.
struct ComboRecordAccess
{
    static void SetKey(zelComboRecord &r, const QString &key)
    {
        if (r.m_store)
            r.m_store->At(r.m_entry).key = key;
        else
            r.m_key = key;
    }
    static void SetLevel(zelComboRecord &r, qint32 level)
    {
        if (r.m_store)
            r.m_store->At(r.m_entry).level = level;
        else
            r.m_level = level;
    }
};
} // namespace zel::detail
