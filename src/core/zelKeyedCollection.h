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
//
// Members are stored in chunks of at most 2 * ChunkSize pointers. Each member
// knows its chunk and its index there, and each chunk its first position, so
// key -> position, key -> member and position -> member are all constant time
// in practice (a position lookup is a direct chunk index while the chunks
// are uniform, a short binary search over the chunk starts otherwise), and an
// insert or removal in the middle moves at most one chunk's pointers plus one
// integer per chunk.

#include <QString>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>
#include <vector>

namespace zel {

// Letter-case-blind hashing and comparison without building folded copies.
struct CaseInsensitiveHash
{
    size_t operator()(const QString &s) const
    {
        size_t h = 1469598103934665603ull;
        for (const QChar c : s) {
            const char16_t u = c.unicode();
            const char16_t f = u < 128 ? char16_t((u >= 'A' && u <= 'Z') ? u + 32 : u)
                                       : c.toCaseFolded().unicode();
            h = (h ^ f) * 1099511628211ull;
        }
        return h;
    }
};

struct CaseInsensitiveEqual
{
    bool operator()(const QString &a, const QString &b) const noexcept
    {
        return a.size() == b.size() && a.compare(b, Qt::CaseInsensitive) == 0;
    }
};

template <typename T> class zelKeyedCollection
{
public:
    using Ptr = std::shared_ptr<T>;
    static constexpr qsizetype ChunkSize = 1024;

private:
    struct Chunk;
    struct Node
    {
        Ptr value;
        QString key;
        Chunk *chunk = nullptr;
        qsizetype idx = 0; // index inside the chunk
    };
    struct Chunk
    {
        std::vector<Node *> nodes;
        qsizetype index = 0; // index of the chunk in Storage::chunks
    };
    struct Storage
    {
        std::vector<std::unique_ptr<Chunk>> chunks;
        std::vector<qsizetype> starts; // 0-based position of each chunk's first member
        std::unordered_map<QString, Node *, CaseInsensitiveHash, CaseInsensitiveEqual> keys;
        qsizetype count = 0;
        bool uniform = true; // every chunk but the last holds exactly ChunkSize members

        Storage() = default;
        Storage(const Storage &) = delete;
        Storage &operator=(const Storage &) = delete;
        ~Storage()
        {
            for (auto &c : chunks)
                for (Node *n : c->nodes)
                    delete n;
        }

        qsizetype chunkOf(qsizetype pos) const // pos 0-based and in range
        {
            if (uniform) {
                const qsizetype c = pos / ChunkSize;
                if (c < qsizetype(chunks.size()))
                    return c;
            }
            const auto it = std::upper_bound(starts.begin(), starts.end(), pos);
            return qsizetype(it - starts.begin()) - 1;
        }

        Node *nodeAt(qsizetype pos) const
        {
            const qsizetype c = chunkOf(pos);
            return chunks[size_t(c)]->nodes[size_t(pos - starts[size_t(c)])];
        }

        qsizetype positionOf(const Node *n) const
        {
            return starts[size_t(n->chunk->index)] + n->idx;
        }

        void renumberChunks(qsizetype from)
        {
            for (qsizetype c = from; c < qsizetype(chunks.size()); ++c)
                chunks[size_t(c)]->index = c;
        }

        void reindexNodes(Chunk *chunk, qsizetype from)
        {
            for (qsizetype i = from; i < qsizetype(chunk->nodes.size()); ++i) {
                chunk->nodes[size_t(i)]->chunk = chunk;
                chunk->nodes[size_t(i)]->idx = i;
            }
        }

        void shiftStarts(qsizetype fromChunk, qsizetype delta)
        {
            qsizetype *s = starts.data();
            for (qsizetype c = fromChunk, n = qsizetype(starts.size()); c < n; ++c)
                s[c] += delta;
        }

        void append(Node *n)
        {
            if (chunks.empty() || qsizetype(chunks.back()->nodes.size()) >= ChunkSize) {
                if (!chunks.empty() && qsizetype(chunks.back()->nodes.size()) != ChunkSize)
                    uniform = false;
                auto c = std::make_unique<Chunk>();
                c->nodes.reserve(size_t(ChunkSize));
                c->index = qsizetype(chunks.size());
                starts.push_back(count);
                chunks.push_back(std::move(c));
            }
            Chunk *c = chunks.back().get();
            n->chunk = c;
            n->idx = qsizetype(c->nodes.size());
            c->nodes.push_back(n);
            ++count;
        }

        void insert(qsizetype pos, Node *n) // 0 <= pos < count
        {
            const qsizetype ci = chunkOf(pos);
            Chunk *c = chunks[size_t(ci)].get();
            const qsizetype local = pos - starts[size_t(ci)];
            c->nodes.insert(c->nodes.begin() + local, n);
            reindexNodes(c, local);
            shiftStarts(ci + 1, 1);
            ++count;
            uniform = false;
            if (qsizetype(c->nodes.size()) > 2 * ChunkSize)
                split(ci);
        }

        void split(qsizetype ci)
        {
            Chunk *c = chunks[size_t(ci)].get();
            auto tail = std::make_unique<Chunk>();
            const qsizetype half = qsizetype(c->nodes.size()) / 2;
            tail->nodes.assign(c->nodes.begin() + half, c->nodes.end());
            c->nodes.resize(size_t(half));
            starts.insert(starts.begin() + ci + 1, starts[size_t(ci)] + half);
            chunks.insert(chunks.begin() + ci + 1, std::move(tail));
            renumberChunks(ci + 1);
            reindexNodes(chunks[size_t(ci) + 1].get(), 0);
        }

        void erase(Node *n)
        {
            Chunk *c = n->chunk;
            const qsizetype ci = c->index;
            const bool last = ci + 1 == qsizetype(chunks.size());
            c->nodes.erase(c->nodes.begin() + n->idx);
            reindexNodes(c, n->idx);
            shiftStarts(ci + 1, -1);
            --count;
            if (!last)
                uniform = false;
            if (c->nodes.empty()) {
                chunks.erase(chunks.begin() + ci);
                starts.erase(starts.begin() + ci);
                renumberChunks(ci);
            }
            if (!n->key.isEmpty())
                keys.erase(n->key);
            delete n;
        }
    };

public:
    zelKeyedCollection() : m_s(std::make_shared<Storage>()) {}
    zelKeyedCollection(const zelKeyedCollection &) = delete;
    zelKeyedCollection &operator=(const zelKeyedCollection &) = delete;

    qint32 Count() const { return qint32(m_s->count); }

    // Adds item under key (empty: no key), before the member at 1-based
    // position `before` (0: at the end). False for a null item, a key that
    // is already there, or a position out of range.
    bool Add(Ptr item, const QString &key = QString(), qint32 before = 0)
    {
        try {
            Storage &s = *m_s;
            if (!item || before < 0 || before > s.count)
                return false;
            if (!key.isEmpty() && s.keys.find(key) != s.keys.end())
                return false;
            auto *n = new Node{std::move(item), key};
            if (before == 0)
                s.append(n);
            else
                s.insert(before - 1, n);
            if (!key.isEmpty())
                s.keys.emplace(key, n);
            return true;
        } catch (...) {
            return false;
        }
    }

    // By key (a string) or by 1-based position (a number).
    Ptr Item(const QVariant &vKey) const
    {
        if (isPosition(vKey)) {
            const double d = vKey.toDouble();
            return std::isfinite(d) && d >= 0.5 && d < double(m_s->count) + 0.5
                       ? ItemAt(qint32(std::lround(d)))
                       : Ptr();
        }
        return ItemByKey(vKey.toString());
    }
    Ptr ItemAt(qint32 pos) const
    {
        if (pos < 1 || pos > m_s->count)
            return Ptr();
        return m_s->nodeAt(pos - 1)->value;
    }
    Ptr ItemByKey(const QString &key) const
    {
        if (key.isEmpty())
            return Ptr();
        const auto it = m_s->keys.find(key);
        return it == m_s->keys.end() ? Ptr() : it->second->value;
    }
    // 1-based position of the member with this key; 0 when there is none.
    qint32 IndexOfKey(const QString &key) const
    {
        if (key.isEmpty())
            return 0;
        const auto it = m_s->keys.find(key);
        return it == m_s->keys.end() ? 0 : qint32(m_s->positionOf(it->second) + 1);
    }
    bool ContainsKey(const QString &key) const { return IndexOfKey(key) != 0; }
    // The key a member was added under ("" for none or out of range).
    QString KeyAt(qint32 pos) const
    {
        if (pos < 1 || pos > m_s->count)
            return QString();
        return m_s->nodeAt(pos - 1)->key;
    }

    bool Remove(const QVariant &vKey)
    {
        if (isPosition(vKey)) {
            const double d = vKey.toDouble();
            return std::isfinite(d) && d >= 0.5 && d < double(m_s->count) + 0.5 &&
                   RemoveAt(qint32(std::lround(d)));
        }
        return RemoveKey(vKey.toString());
    }
    bool RemoveAt(qint32 pos)
    {
        if (pos < 1 || pos > m_s->count)
            return false;
        m_s->erase(m_s->nodeAt(pos - 1));
        return true;
    }
    bool RemoveKey(const QString &key)
    {
        if (key.isEmpty())
            return false;
        const auto it = m_s->keys.find(key);
        if (it == m_s->keys.end())
            return false;
        m_s->erase(it->second);
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
            if (!m_s || m_pos >= m_s->count)
                return Ptr();
            return m_s->nodeAt(m_pos++)->value;
        }
        void Reset() { m_pos = 0; }

    private:
        friend class zelKeyedCollection;
        explicit Enumerator(std::shared_ptr<const Storage> s) : m_s(std::move(s)) {}
        std::shared_ptr<const Storage> m_s;
        qsizetype m_pos = 0;
    };
    Enumerator NewEnum() const { return Enumerator(m_s); }

    // Range-for over the current members, chunk by chunk.
    class const_iterator
    {
    public:
        const Ptr &operator*() const { return (*m_chunks)[m_c]->nodes[m_i]->value; }
        const_iterator &operator++()
        {
            if (++m_i >= (*m_chunks)[m_c]->nodes.size()) {
                m_i = 0;
                ++m_c;
            }
            return *this;
        }
        bool operator==(const const_iterator &o) const { return m_c == o.m_c && m_i == o.m_i; }
        bool operator!=(const const_iterator &o) const { return !(*this == o); }

    private:
        friend class zelKeyedCollection;
        const_iterator(const std::vector<std::unique_ptr<Chunk>> *chunks, size_t c)
            : m_chunks(chunks), m_c(c)
        {}
        const std::vector<std::unique_ptr<Chunk>> *m_chunks;
        size_t m_c = 0;
        size_t m_i = 0;
    };
    const_iterator begin() const { return const_iterator(&m_s->chunks, 0); }
    const_iterator end() const { return const_iterator(&m_s->chunks, m_s->chunks.size()); }

private:
    static bool isPosition(const QVariant &v)
    {
        switch (v.metaType().id()) {
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::ULong:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Float:
        case QMetaType::Double:
            return true;
        default:
            return false;
        }
    }

    std::shared_ptr<Storage> m_s;
};

} // namespace zel
