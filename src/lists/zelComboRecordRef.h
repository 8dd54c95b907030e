#pragma once

// What AddItem of the record lists answers in C++: the record just added,
// without making its object until someone uses it (->, *, or taking it as
// a std::shared_ptr<zelComboRecord>). Null for a refused add. A Ref names a
// row of its list; keep the std::shared_ptr to hold the record past a Clear.
// A Ref first used after a Clear has no record to make: get() answers
// nothing, and -> or * log error 424 and reach an empty record instead of
// crashing the host.

#include "lists/zelComboRecord.h"
#include "lists/zelRecordStore.h"

#include <cstddef>
#include <memory>

class zelComboRecordRef
{
public:
    zelComboRecordRef() = default;
    zelComboRecordRef(std::nullptr_t) {}
    zelComboRecordRef(const std::shared_ptr<zel::zelRecordStore> &store, int entry)
        : m_store(entry ? store : nullptr), m_generation(store ? store->Generation() : 0),
          m_entry(store ? entry : 0)
    {}

    // Makes nothing.
    explicit operator bool() const { return m_entry != 0; }
    friend bool operator==(const zelComboRecordRef &r, std::nullptr_t) { return !r; }

    // The record's object, made at the first use and held by this Ref.
    const std::shared_ptr<zelComboRecord> &get() const
    {
        if (!m_object && m_entry) {
            const auto store = m_store.lock();
            if (store && store->Generation() == m_generation)
                m_object = store->Object(m_entry);
        }
        return m_object;
    }
    operator std::shared_ptr<zelComboRecord>() const { return get(); }
    zelComboRecord *operator->() const { return &**this; }
    zelComboRecord &operator*() const
    {
        const auto &object = get();
        return object ? *object : zel::detail::StaleRecord();
    }

private:
    std::weak_ptr<zel::zelRecordStore> m_store;
    quint64 m_generation = 0;
    int m_entry = 0;
    mutable std::shared_ptr<zelComboRecord> m_object;
};
