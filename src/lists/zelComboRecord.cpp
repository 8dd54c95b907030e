#include "lists/zelComboRecord.h"

#include "core/zelTrail.h"

zelComboRecord::zelComboRecord(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelComboRecord>();
}

zelComboRecord::~zelComboRecord()
{
    Ptr p = std::move(m_parent);
    while (p && p.use_count() == 1) {
        Ptr next = std::move(p->m_parent);
        p = std::move(next);
    }
}

void zelComboRecord::SetData(const QString &v)
{
    if (m_store)
        m_store->SetData(m_entry, v);
    else
        m_data = v;
}

void zelComboRecord::SetTag(const QVariant &v)
{
    if (m_store)
        m_store->SetTag(m_entry, v);
    else
        m_tag = v;
}

void zelComboRecord::SetParent(Ptr p)
{
    m_parent = std::move(p);
}

void zelComboRecord::detach()
{
    if (!m_store)
        return;
    const zel::zelRecordStore::Entry &e = m_store->At(m_entry);
    m_key = e.key;
    m_data = m_store->Data(m_entry);
    m_tag = m_store->Tag(m_entry);
    m_level = e.level;
    m_store = nullptr;
    m_entry = 0;
}

void zelComboRecord::SetParentObject(QObject *o)
{
    zel::Trail t(this, "Parent Set");
    t.Run([&] {
        if (!o) {
            SetParent(nullptr);
            return;
        }
        Ptr p = zel::SharedFromObject<zelComboRecord>(o);
        if (!p)
            throw zelError(zelError::TypeMismatch);
        SetParent(std::move(p));
    });
}

zelComboRecord &zel::detail::StaleRecord()
{
    zel::Trail t(QStringLiteral("zelComboRecordRef.Use"));
    t.Run([] {
        throw zelError(zelError::ObjectRequired, QStringLiteral("zelComboRecordRef.Use"),
                       QStringLiteral("The record's list was cleared before the record was "
                                      "used; keep a std::shared_ptr to hold a record"));
    });
    // Never freed: a host may hold the reference it was given for as long
    // as it runs.
    static zelComboRecord *const empty = new zelComboRecord;
    return *empty;
}
