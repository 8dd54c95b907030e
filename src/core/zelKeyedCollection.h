#pragma once

// The ordered keyed collection behind every collection class of the library.
//
// - Members are shared pointers, kept in insertion order, 1-based positions.
// - A member may have a string key; keys are unique and compared without
//   regard to letter case. An empty key means "no key".
// - Item() by key or by position answers nullptr when nothing matches;
//   Add() and Remove() answer true or false and never throw.
// - Clear() replaces the inner storage, so an enumerator taken before keeps
//   walking the old members.
// - Lookups by key and by position take constant time; how is in
//   zelKeyedCollectionDetail.h.

#include "core/zelKeyedCollectionDetail.h"
#include "platform/zelVariantKind.h"

#include <QString>
#include <QVariant>

#include <memory>

namespace zel {

template <typename T> class zelKeyedCollection
{
    using Store = detail::KeyedStore<std::shared_ptr<T>>;
    using Storage = typename Store::Storage;

public:
    using Ptr = std::shared_ptr<T>;
    using const_iterator = typename Store::const_iterator; // range-for over the members

    zelKeyedCollection() : m_s(std::make_shared<Storage>()) {}
    zelKeyedCollection(const zelKeyedCollection &) = delete;
    zelKeyedCollection &operator=(const zelKeyedCollection &) = delete;

    qint32 Count() const { return qint32(m_s->count); }

    // Adds item under key (empty: no key), before the member at 1-based
    // position `before` (0: at the end). False for a null item, a key that
    // is already there, or a position out of range.
    bool Add(Ptr item, const QString &key = QString(), qint32 before = 0)
    {
        return m_s->add(std::move(item), key, before);
    }

    // By key (a string) or by 1-based position (a number).
    Ptr Item(const QVariant &vKey) const
    {
        return IsNumber(vKey) ? ItemAt(detail::PositionOf(vKey.toDouble(), m_s->count))
                              : ItemByKey(vKey.toString());
    }
    Ptr ItemAt(qint32 pos) const
    {
        const auto *slot = m_s->at(pos);
        return slot ? slot->value : Ptr();
    }
    Ptr ItemByKey(const QString &key) const
    {
        const auto *node = m_s->find(key);
        return node ? node->value : Ptr();
    }
    // 1-based position of the member with this key; 0 when there is none.
    qint32 IndexOfKey(const QString &key) const
    {
        auto *node = m_s->find(key);
        return node ? qint32(m_s->positionOf(node) + 1) : 0;
    }
    bool ContainsKey(const QString &key) const { return m_s->find(key) != nullptr; }
    // The key a member was added under ("" for none or out of range).
    QString KeyAt(qint32 pos) const
    {
        const auto *slot = m_s->at(pos);
        return slot && slot->node ? slot->node->key : QString();
    }

    bool Remove(const QVariant &vKey)
    {
        return IsNumber(vKey) ? RemoveAt(detail::PositionOf(vKey.toDouble(), m_s->count))
                              : RemoveKey(vKey.toString());
    }
    bool RemoveAt(qint32 pos)
    {
        if (!m_s->at(pos))
            return false;
        m_s->erasePosition(pos - 1);
        return true;
    }
    bool RemoveKey(const QString &key)
    {
        auto *node = m_s->find(key);
        if (!node)
            return false;
        m_s->eraseNode(node);
        return true;
    }

    void Clear() { m_s = std::make_shared<Storage>(); }

    // Walks the members by position; taken before a Clear(), it keeps
    // walking the storage it was taken from.
    class Enumerator
    {
    public:
        Ptr Next()
        {
            const auto *slot = m_s ? m_s->at(m_pos + 1) : nullptr;
            if (!slot)
                return Ptr();
            ++m_pos;
            return slot->value;
        }
        void Reset() { m_pos = 0; }

    private:
        friend class zelKeyedCollection;
        explicit Enumerator(std::shared_ptr<const Storage> s) : m_s(std::move(s)) {}
        std::shared_ptr<const Storage> m_s;
        qsizetype m_pos = 0;
    };
    Enumerator NewEnum() const { return Enumerator(m_s); }

    const_iterator begin() const { return Store::begin(*m_s); }
    const_iterator end() const { return Store::end(*m_s); }

private:
    std::shared_ptr<Storage> m_s;
};

} // namespace zel
