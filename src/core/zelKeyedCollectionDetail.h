#pragma once

// Storage behind zel::zelKeyedCollection; nothing here is for hosts.
//
// Members are stored in chunks of at most 2 * ChunkSize entries, each chunk
// knowing the position of its first member. A slot holds the member itself,
// so position -> member is one chunk lookup (direct while the chunks are
// uniform, a short walk from the proportional guess otherwise) and one array
// read. A keyed member also has a node in the key table that holds the
// member, its chunk and a hint of its index there, so key -> member is one
// hash lookup and key -> position a look at the hint or a scan of one chunk.
// An insert or removal moves the entries of one chunk and adds one integer per
// chunk; it never walks the members of other chunks.

#include <QString>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace zel::detail {

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
        // The table picks slots by the low bits, which FNV leaves weak.
        h ^= h >> 33;
        h *= 0xff51afd7ed558ccdull;
        h ^= h >> 33;
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

// The 1-based position that a number names among count members: the
// nearest whole number, 0 when that is out of range or d is not finite.
inline qint32 PositionOf(double d, qsizetype count)
{
    return std::isfinite(d) && d >= 0.5 && d < double(count) + 0.5 ? qint32(std::lround(d)) : 0;
}

template <typename Ptr> struct KeyedStore
{
    static constexpr qsizetype ChunkSize = 512;

    struct Chunk;
    struct Node // one per keyed member
    {
        Ptr value;
        QString key;
        size_t hash = 0;
        Chunk *chunk = nullptr;
        qsizetype hint = 0; // index in the chunk when last looked at
    };

    // Nodes live in blocks and keep their address until erased, so that
    // entries and the key table can point at them.
    class NodePool
    {
    public:
        Node *make()
        {
            if (!m_free.empty()) {
                Node *n = m_free.back();
                m_free.pop_back();
                return n;
            }
            if (m_blocks.empty() || m_used == BlockSize) {
                m_blocks.push_back(std::make_unique<Node[]>(BlockSize));
                m_used = 0;
            }
            return &m_blocks.back()[size_t(m_used++)];
        }
        void release(Node *n)
        {
            *n = Node();
            m_free.push_back(n);
        }

    private:
        static constexpr qsizetype BlockSize = 256;
        std::vector<std::unique_ptr<Node[]>> m_blocks;
        std::vector<Node *> m_free;
        qsizetype m_used = 0;
    };

    // Key -> node: open addressing with linear probing over (hash, node)
    // pairs, at most half full. A lookup reads one run of pairs and compares
    // keys only where the full hashes agree; growing reads no key at all.
    class KeyTable
    {
    public:
        Node *find(const QString &key) const
        {
            if (m_slots.empty())
                return nullptr;
            const size_t h = CaseInsensitiveHash()(key);
            for (size_t i = h & m_mask;; i = (i + 1) & m_mask) {
                const Cell &c = m_slots[i];
                if (!c.node)
                    return nullptr;
                if (c.hash == h && CaseInsensitiveEqual()(c.node->key, key))
                    return c.node;
            }
        }

        // The node of key, made when there is none; second: whether it was made.
        std::pair<Node *, bool> emplace(const QString &key)
        {
            if ((m_count + 1) * 2 > m_slots.size())
                grow();
            const size_t h = CaseInsensitiveHash()(key);
            size_t i = h & m_mask;
            for (;; i = (i + 1) & m_mask) {
                const Cell &c = m_slots[i];
                if (!c.node)
                    break;
                if (c.hash == h && CaseInsensitiveEqual()(c.node->key, key))
                    return {c.node, false};
            }
            Node *n = m_pool.make();
            n->key = key;
            n->hash = h;
            m_slots[i] = Cell{h, n};
            ++m_count;
            return {n, true};
        }

        void erase(Node *n)
        {
            size_t i = n->hash & m_mask;
            while (m_slots[i].node != n)
                i = (i + 1) & m_mask;
            // Backward shift: pull later members of the run into the hole, so
            // that no lookup stops early at it.
            for (size_t j = (i + 1) & m_mask; m_slots[j].node; j = (j + 1) & m_mask) {
                const size_t home = m_slots[j].hash & m_mask;
                const bool stays = i <= j ? (i < home && home <= j) : (i < home || home <= j);
                if (stays)
                    continue;
                m_slots[i] = m_slots[j];
                i = j;
            }
            m_slots[i] = Cell();
            --m_count;
            m_pool.release(n);
        }

    private:
        struct Cell
        {
            size_t hash = 0;
            Node *node = nullptr;
        };

        void grow()
        {
            std::vector<Cell> old(std::max<size_t>(16, m_slots.size() * 2));
            old.swap(m_slots);
            m_mask = m_slots.size() - 1;
            for (const Cell &c : old) {
                if (!c.node)
                    continue;
                size_t i = c.hash & m_mask;
                while (m_slots[i].node)
                    i = (i + 1) & m_mask;
                m_slots[i] = c;
            }
        }

        std::vector<Cell> m_slots;
        size_t m_mask = 0;
        size_t m_count = 0;
        NodePool m_pool;
    };
    struct Slot
    {
        Ptr value;
        Node *node = nullptr; // null for a member without key
    };
    struct Chunk
    {
        std::vector<Slot> entries;
        qsizetype index = 0; // index of the chunk in Storage::chunks
    };
    struct Storage
    {
        std::vector<std::unique_ptr<Chunk>> chunks;
        std::vector<qsizetype> starts; // position (0-based) of each chunk's first member
        // Each chunk's entry array, side by side, so that a position lookup
        // reads two small contiguous arrays before the entry itself.
        std::vector<Slot *> bases;
        KeyTable keys;
        qsizetype count = 0;
        bool uniform = true; // every chunk but the last holds exactly ChunkSize members

        Storage() = default;
        Storage(const Storage &) = delete;
        Storage &operator=(const Storage &) = delete;

        qsizetype chunkOf(qsizetype pos) const // pos 0-based and in range
        {
            const qsizetype n = qsizetype(chunks.size());
            qsizetype c = std::min(pos / ChunkSize, n - 1);
            if (uniform)
                return c;
            // After edits the chunks are close to uniform: a few steps at most.
            for (int step = 0; step < 8; ++step) {
                if (starts[size_t(c)] > pos)
                    --c;
                else if (c + 1 < n && starts[size_t(c) + 1] <= pos)
                    ++c;
                else
                    return c;
            }
            const auto it = std::upper_bound(starts.begin(), starts.end(), pos);
            return qsizetype(it - starts.begin()) - 1;
        }

        const Slot &slotAt(qsizetype pos) const
        {
            const qsizetype c = chunkOf(pos);
            return bases[size_t(c)][pos - starts[size_t(c)]];
        }

        void refresh(qsizetype c) { bases[size_t(c)] = chunks[size_t(c)]->entries.data(); }

        qsizetype indexInChunk(Node *n) const
        {
            const std::vector<Slot> &entries = n->chunk->entries;
            if (n->hint < qsizetype(entries.size()) && entries[size_t(n->hint)].node == n)
                return n->hint;
            for (qsizetype i = 0, m = qsizetype(entries.size()); i < m; ++i)
                if (entries[size_t(i)].node == n)
                    return n->hint = i;
            return -1; // cannot happen while the node is in the table
        }

        qsizetype positionOf(Node *n) const
        {
            return starts[size_t(n->chunk->index)] + indexInChunk(n);
        }

        void renumberChunks(qsizetype from)
        {
            for (qsizetype c = from; c < qsizetype(chunks.size()); ++c)
                chunks[size_t(c)]->index = c;
        }

        void shiftStarts(qsizetype fromChunk, qsizetype delta)
        {
            qsizetype *s = starts.data();
            for (qsizetype c = fromChunk, n = qsizetype(starts.size()); c < n; ++c)
                s[c] += delta;
        }

        void append(Slot slot)
        {
            if (chunks.empty() || qsizetype(chunks.back()->entries.size()) >= ChunkSize) {
                if (!chunks.empty() && qsizetype(chunks.back()->entries.size()) != ChunkSize)
                    uniform = false;
                auto c = std::make_unique<Chunk>();
                c->entries.reserve(size_t(ChunkSize));
                c->index = qsizetype(chunks.size());
                starts.push_back(count);
                bases.push_back(c->entries.data());
                chunks.push_back(std::move(c));
            }
            Chunk *c = chunks.back().get();
            if (slot.node) {
                slot.node->chunk = c;
                slot.node->hint = qsizetype(c->entries.size());
            }
            c->entries.push_back(std::move(slot));
            bases.back() = c->entries.data();
            ++count;
        }

        void insert(qsizetype pos, Slot slot) // 0 <= pos < count
        {
            const qsizetype ci = chunkOf(pos);
            Chunk *c = chunks[size_t(ci)].get();
            const qsizetype local = pos - starts[size_t(ci)];
            if (slot.node) {
                slot.node->chunk = c;
                slot.node->hint = local;
            }
            c->entries.insert(c->entries.begin() + local, std::move(slot));
            refresh(ci);
            shiftStarts(ci + 1, 1);
            ++count;
            uniform = false;
            if (qsizetype(c->entries.size()) > 2 * ChunkSize)
                split(ci);
        }

        void split(qsizetype ci)
        {
            Chunk *c = chunks[size_t(ci)].get();
            auto tail = std::make_unique<Chunk>();
            const qsizetype half = qsizetype(c->entries.size()) / 2;
            tail->entries.assign(std::make_move_iterator(c->entries.begin() + half),
                                 std::make_move_iterator(c->entries.end()));
            c->entries.resize(size_t(half));
            for (qsizetype i = 0; i < qsizetype(tail->entries.size()); ++i)
                if (Node *n = tail->entries[size_t(i)].node) {
                    n->chunk = tail.get();
                    n->hint = i;
                }
            starts.insert(starts.begin() + ci + 1, starts[size_t(ci)] + half);
            bases.insert(bases.begin() + ci + 1, tail->entries.data());
            chunks.insert(chunks.begin() + ci + 1, std::move(tail));
            refresh(ci);
            renumberChunks(ci + 1);
        }

        void eraseAt(Chunk *c, qsizetype local)
        {
            const qsizetype ci = c->index;
            Node *node = c->entries[size_t(local)].node;
            c->entries.erase(c->entries.begin() + local);
            shiftStarts(ci + 1, -1);
            --count;
            if (ci + 1 != qsizetype(chunks.size()))
                uniform = false;
            if (c->entries.empty()) {
                chunks.erase(chunks.begin() + ci);
                starts.erase(starts.begin() + ci);
                bases.erase(bases.begin() + ci);
                renumberChunks(ci);
            } else {
                refresh(ci);
            }
            if (node)
                keys.erase(node);
        }

        void erasePosition(qsizetype pos)
        {
            const qsizetype ci = chunkOf(pos);
            eraseAt(chunks[size_t(ci)].get(), pos - starts[size_t(ci)]);
        }

        void eraseNode(Node *n) { eraseAt(n->chunk, indexInChunk(n)); }

        // The slot at a 1-based position; null when there is none.
        const Slot *at(qsizetype pos) const
        {
            return pos < 1 || pos > count ? nullptr : &slotAt(pos - 1);
        }

        Node *find(const QString &key) const { return key.isEmpty() ? nullptr : keys.find(key); }

        // Adds item under key (empty: no key) before the member at 1-based
        // position `before` (0: at the end); false when refused.
        bool add(Ptr item, const QString &key, qsizetype before)
        {
            try {
                if (!item || before < 0 || before > count)
                    return false;
                Slot slot{std::move(item), nullptr};
                if (!key.isEmpty()) {
                    // One lookup both tests the key and makes its node.
                    auto [node, inserted] = keys.emplace(key);
                    if (!inserted)
                        return false;
                    node->value = slot.value;
                    slot.node = node;
                }
                try {
                    if (before == 0)
                        append(std::move(slot));
                    else
                        insert(before - 1, std::move(slot));
                } catch (...) {
                    if (slot.node)
                        keys.erase(slot.node);
                    throw;
                }
                return true;
            } catch (...) {
                return false;
            }
        }
    };

    // Walks the current members chunk by chunk, for range-for.
    class const_iterator
    {
    public:
        const Ptr &operator*() const { return (*m_chunks)[m_c]->entries[m_i].value; }
        const_iterator &operator++()
        {
            if (++m_i >= (*m_chunks)[m_c]->entries.size()) {
                m_i = 0;
                ++m_c;
            }
            return *this;
        }
        bool operator==(const const_iterator &o) const { return m_c == o.m_c && m_i == o.m_i; }
        bool operator!=(const const_iterator &o) const { return !(*this == o); }

    private:
        friend struct KeyedStore;
        const_iterator(const std::vector<std::unique_ptr<Chunk>> *chunks, size_t c)
            : m_chunks(chunks), m_c(c)
        {}
        const std::vector<std::unique_ptr<Chunk>> *m_chunks;
        size_t m_c = 0;
        size_t m_i = 0;
    };
    static const_iterator begin(const Storage &s) { return const_iterator(&s.chunks, 0); }
    static const_iterator end(const Storage &s)
    {
        return const_iterator(&s.chunks, s.chunks.size());
    }
};

} // namespace zel::detail
