#include "lists/zelRecordStore.h"

#include "core/zelKeyedCollectionDetail.h"
#include "lists/zelComboRecord.h"

namespace zel {

namespace {

quint32 hashOf(const QString &key)
{
    return quint32(detail::CaseInsensitiveHash()(key));
}

} // namespace

zelRecordStore::~zelRecordStore()
{
    detachObjects();
    releaseEntries();
}

void zelRecordStore::releaseEntries()
{
    for (int n = 1; n <= m_count; ++n)
        At(n).~Entry();
    for (Entry *block : m_blocks)
        ::operator delete(block);
    m_blocks.clear();
    m_blocks.shrink_to_fit();
    m_count = 0;
}

int zelRecordStore::RecordAt(qint64 position) const
{
    if (position < 1 || position > RecordCount())
        return 0;
    if (m_removed == 0)
        return int(position);
    // Only after RemoveRecord, which no control calls: a walk is enough.
    for (int n = 1; n <= Count(); ++n)
        if (!At(n).removed && --position == 0)
            return n;
    return 0;
}

int zelRecordStore::Find(const QString &key) const
{
    // A record added without a key has none to be found by.
    if (key.isEmpty())
        return 0;
    if (m_lastFound && key == m_lastKey)
        return m_lastFound;
    const int n = lookup(key);
    if (n) {
        m_lastKey = key;
        m_lastFound = n;
    }
    return n;
}

bool zelRecordStore::mayHave(quint32 hash) const
{
    if (m_filter.empty())
        return true;
    const quint64 bits = (quint64(1) << (hash & 63)) | (quint64(1) << ((hash >> 6) & 63));
    return (m_filter[(hash >> 12) & (m_filter.size() - 1)] & bits) == bits;
}

void zelRecordStore::addToFilter(quint32 hash)
{
    if (m_filter.size() * 8 < size_t(m_count) && m_filter.size() < (size_t(1) << 20)) {
        // Grown with the records, from the hashes the table holds.
        catchUp();
        m_filter.assign(std::max<size_t>(64, m_filter.size() * 2), 0);
        for (const Slot &s : m_slots)
            if (s.entry)
                addToFilter(s.hash);
    }
    const quint64 bits = (quint64(1) << (hash & 63)) | (quint64(1) << ((hash >> 6) & 63));
    m_filter[(hash >> 12) & (m_filter.size() - 1)] |= bits;
}

void zelRecordStore::catchUp() const
{
    const size_t mask = m_slots.size() - 1;
    const size_t count = m_pending.size();
    constexpr size_t Ahead = 8;
    for (size_t k = 0; k < count; ++k) {
        if (k + Ahead < count)
            __builtin_prefetch(&m_slots[m_pending[k + Ahead].hash & mask], 1);
        const Slot &p = m_pending[k];
        size_t i = p.hash & mask;
        while (m_slots[i].entry)
            i = (i + 1) & mask;
        m_slots[i] = p;
    }
    m_pending.clear();
}

int zelRecordStore::lookup(const QString &key) const
{
    if (!m_pending.empty())
        catchUp();
    if (m_slots.empty())
        return 0;
    const quint32 h = hashOf(key);
    const size_t mask = m_slots.size() - 1;
    for (size_t i = h & mask; m_slots[i].entry != 0; i = (i + 1) & mask)
        if (m_slots[i].hash == h && detail::CaseInsensitiveEqual()(At(m_slots[i].entry).key, key))
            return m_slots[i].entry;
    return 0;
}

int zelRecordStore::FindExact(const QString &key) const
{
    if (!m_sharedKeys.isEmpty() && m_sharedKeys.contains(key.toCaseFolded()))
        return -1;
    const int n = lookup(key);
    return n && At(n).key == key ? n : 0;
}

void zelRecordStore::grow()
{
    if ((m_slots.size() >> 1) > size_t(RecordCount()))
        return;
    catchUp();
    const size_t oldSize = m_slots.size();
    std::vector<Slot> fresh(std::max<size_t>(16, oldSize * 2));
    const size_t mask = fresh.size() - 1;
    // The old table is walked from an empty slot, so that no run of keys
    // wraps past the start of the walk: keys then come in the order of
    // their homes, and the new table fills front to back in two streams
    // instead of at random.
    size_t start = 0;
    while (start < oldSize && m_slots[start].entry)
        ++start;
    for (size_t k = 1; k <= oldSize; ++k) {
        const Slot &s = m_slots[(start + k) & (oldSize - 1)];
        if (!s.entry)
            continue;
        size_t i = s.hash & mask;
        while (fresh[i].entry)
            i = (i + 1) & mask;
        fresh[i] = s;
    }
    m_slots.swap(fresh);
}

void zelRecordStore::unindex(int n)
{
    catchUp();
    if (m_slots.empty())
        return;
    const size_t mask = m_slots.size() - 1;
    size_t i = hashOf(At(n).key) & mask;
    while (m_slots[i].entry && m_slots[i].entry != n)
        i = (i + 1) & mask;
    if (!m_slots[i].entry)
        return;
    // Backward-shift deletion keeps every probe run unbroken.
    m_slots[i] = Slot();
    for (size_t j = (i + 1) & mask; m_slots[j].entry; j = (j + 1) & mask) {
        const size_t home = m_slots[j].hash & mask;
        if (((j - home) & mask) >= ((j - i) & mask)) {
            m_slots[i] = m_slots[j];
            m_slots[j] = Slot();
            i = j;
        }
    }
}

void zelRecordStore::Expect(const QString &key) const
{
    if (m_filter.empty())
        return;
    const quint32 h = hashOf(key);
    __builtin_prefetch(&m_filter[(h >> 12) & (m_filter.size() - 1)]);
}

int zelRecordStore::Create(const QString &key, const QString &texts)
{
    return add(key, texts, true);
}

int zelRecordStore::Append(const QString &key, const QString &texts)
{
    return add(key, texts, false);
}

int zelRecordStore::add(const QString &key, const QString &texts, bool refuseTaken)
{
    if (m_count >= std::numeric_limits<int>::max() / 2)
        return 0;
    grow();
    const quint32 h = hashOf(key);
    // A key the filter has not seen is new: its slot can wait.
    const bool known = mayHave(h);
    if (known && !m_pending.empty())
        catchUp();
    const size_t mask = m_slots.size() - 1;
    size_t i = h & mask;
    bool taken = false;
    for (; known && m_slots[i].entry != 0; i = (i + 1) & mask) {
        if (m_slots[i].hash == h && detail::CaseInsensitiveEqual()(At(m_slots[i].entry).key, key)) {
            taken = true;
            break;
        }
    }
    // Records without a key are not found by it, so none takes it.
    if (taken && refuseTaken && !key.isEmpty())
        return 0;
    if ((size_t(m_count) & BlockMask) == 0) {
        m_blocks.reserve(m_blocks.size() + 1);
        m_blocks.push_back(static_cast<Entry *>(::operator new(sizeof(Entry) * (BlockMask + 1))));
    }
    new (&m_blocks.back()[size_t(m_count) & BlockMask]) Entry(key, texts);
    const int n = ++m_count;
    if (taken) {
        m_sharedKeys.insert(key.toCaseFolded());
        return n;
    }
    if (known) {
        m_slots[i] = Slot{h, n};
    } else {
        m_pending.push_back(Slot{h, n});
        if (m_pending.size() >= 4096)
            catchUp();
    }
    addToFilter(h);
    return n;
}

QString zelRecordStore::Data(int n) const
{
    const auto it = m_data.constFind(n);
    return it == m_data.constEnd() ? At(n).texts : *it;
}

void zelRecordStore::SetData(int n, const QString &data)
{
    m_data.insert(n, data);
}

void zelRecordStore::SetTag(int n, const QVariant &tag)
{
    if (tag.isValid())
        m_tags.insert(n, tag);
    else
        m_tags.remove(n);
}

std::shared_ptr<zelComboRecord> zelRecordStore::Object(int n)
{
    if (n < 1 || n > Count())
        return {};
    if (At(n).object)
        return m_made[size_t(At(n).object - 1)];
    // The entries up the Parent chain that have no object yet, made from
    // the top down so that each takes its parent's.
    std::vector<int> chain;
    for (int m = n; m != 0 && !At(m).removed; m = At(m).parent) {
        if (At(m).object)
            break;
        chain.push_back(m);
    }
    std::shared_ptr<zelComboRecord> made;
    for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
        Entry &e = At(*it);
        auto object = std::make_shared<zelComboRecord>();
        object->m_store = this;
        object->m_entry = *it;
        const int parent = e.parent ? At(e.parent).object : 0;
        object->m_parent = parent ? m_made[size_t(parent - 1)] : nullptr;
        m_made.push_back(object);
        e.object = qint32(m_made.size());
        made = std::move(object);
    }
    return made;
}

void zelRecordStore::Adopt(int n, std::shared_ptr<zelComboRecord> object)
{
    m_made.push_back(std::move(object));
    At(n).object = qint32(m_made.size());
}

void zelRecordStore::Remove(int n)
{
    Entry &e = At(n);
    if (e.removed)
        return;
    if (e.object && m_made[size_t(e.object - 1)]->m_store == this)
        m_made[size_t(e.object - 1)]->detach();
    unindex(n);
    if (m_lastFound == n)
        m_lastFound = 0;
    e.removed = true;
    e.object = 0;
    ++m_removed;
}

void zelRecordStore::detachObjects()
{
    // An adopted record may answer for another store, or for itself.
    for (const auto &p : m_made)
        if (p->m_store == this)
            p->detach();
}

void zelRecordStore::Clear()
{
    detachObjects();
    // The objects may be the last holders of their parents: they go after
    // every object has its own copy.
    const auto made = std::move(m_made);
    releaseEntries();
    m_slots.clear();
    m_slots.shrink_to_fit();
    m_pending.clear();
    m_filter.clear();
    m_filter.shrink_to_fit();
    m_lastFound = 0;
    m_lastKey.clear();
    m_sharedKeys.clear();
    m_data.clear();
    m_tags.clear();
    m_removed = 0;
    ++m_generation;
}

} // namespace zel
