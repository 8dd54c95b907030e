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

void zelComboRecord::SetParentObject(QObject *o)
{
    zel::Trail t(this, "Parent Set");
    t.Run([&] {
        if (!o) {
            m_parent.reset();
            return;
        }
        Ptr p = zel::SharedFromObject<zelComboRecord>(o);
        if (!p)
            throw zelError(zelError::TypeMismatch);
        m_parent = std::move(p);
    });
}
