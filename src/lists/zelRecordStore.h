#pragma once

// The one place where the records of a list and the rows that show them
// live: one entry per record, in insertion order (an entry's number, 1 and
// up, is the record's position and the row's handle), side by side in
// blocks of a thousand. A million rows cost a million entries and no other
// allocation than the blocks; the texts are shares of the host's strings.
//
// A zelComboRecord object is made only when someone asks for one (Object);
// the store then holds it, as a collection of objects would, so that a
// late-bound caller's bare QObject * stays valid, and hands out the same
// object every time. Bound to its entry it reads and writes through it;
// when the entries go (Clear, or the store itself), every object still
// alive takes a copy of its data first.
//
// Keys: one table, letter case ignored, answers both the records' lookup
// and the rows' lookup by exact key (a case-blind hit compared exactly).

#include "zelCtrlExport.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

class zelComboRecord;

namespace zel {

class ZELCTRL_EXPORT zelRecordStore
{
public:
    // The rows under one row (or at the top), in display order. Most rows
    // have none, and then no Kids either.
    struct Kids
    {
        std::vector<int> handles;
        size_t sortedLen = 0;  // handles before this are in order
        size_t pendingLen = 0; // handles before this are to be sorted before use (0: none)
    };
    struct Entry
    {
        Entry(const QString &k, const QString &t) : key(k), texts(t) {}
        QString key;
        QString texts; // the row's tab-joined texts as added; also Data until written
        std::unique_ptr<Kids> kids;
        qint32 object = 0;    // 1-based among the objects made; 0: none yet
        qint32 parent = 0;    // the record's Parent when its object is made; 0: none
        qint32 rowParent = 0; // the row it is shown under; 0: the top
        qint32 level = 0;
        qint32 image = 0;
        mutable qint32 pos = 0;         // position under rowParent, checked before use
        mutable qint32 captionLen = -1; // length of the first text, the sort key; -1: not known yet
        bool enabled = true;
        bool expanded = false;
        bool treeText = false; // the model holds a tree text for the row
        bool removed = false;  // RemoveRecord took it out of the records
    };

    zelRecordStore() = default;
    zelRecordStore(const zelRecordStore &) = delete;
    zelRecordStore &operator=(const zelRecordStore &) = delete;
    // Objects still held elsewhere take their data along.
    ~zelRecordStore();

    int Count() const { return m_count; }
    Entry &At(int n) { return m_blocks[size_t(n - 1) >> BlockBits][size_t(n - 1) & BlockMask]; }
    const Entry &At(int n) const
    {
        return m_blocks[size_t(n - 1) >> BlockBits][size_t(n - 1) & BlockMask];
    }
    // Records (entries not removed) and the n-th of them (1-based; 0: none).
    int RecordCount() const { return Count() - m_removed; }
    int RecordAt(qint64 position) const;
    // Bumped by Clear: entry numbers from before it name nothing now.
    quint64 Generation() const { return m_generation; }

    // The record of key, letter case ignored; 0 when none and for "".
    int Find(const QString &key) const;
    // The entry whose key is key exactly; 0 when none; -1 when entries
    // share that key in some letter case and only a walk can tell.
    int FindExact(const QString &key) const;
    // A new entry, or 0 when the key is taken in any letter case.
    int Create(const QString &key, const QString &texts);
    // Starts reading what a Create of key will read, so that the reading
    // overlaps the caller's own work before it.
    void Expect(const QString &key) const;
    // A new entry whatever its key: keys that several entries share are
    // told apart by a walk (FindExact answers -1 for them).
    int Append(const QString &key, const QString &texts);

    QString Data(int n) const;
    void SetData(int n, const QString &data);
    QVariant Tag(int n) const { return m_tags.value(n); }
    void SetTag(int n, const QVariant &tag);

    // The object of entry n, made when there is none; its Parent's object
    // is made with it.
    std::shared_ptr<zelComboRecord> Object(int n);
    // object (made elsewhere) is the record of entry n from now on.
    void Adopt(int n, std::shared_ptr<zelComboRecord> object);
    // Entry n leaves the records (its object, when alive, takes its data);
    // its row stays.
    void Remove(int n);
    void Clear();

private:
    struct Slot
    {
        quint32 hash = 0;
        qint32 entry = 0; // 0: empty
    };
    int lookup(const QString &key) const;
    // Whether key may be in the index: false for most keys that are not.
    bool mayHave(quint32 hash) const;
    void addToFilter(quint32 hash);
    // Puts the keys added since into the table, in one pass.
    void catchUp() const;
    int add(const QString &key, const QString &texts, bool refuseTaken);
    void grow();
    void unindex(int n);
    void detachObjects();
    void releaseEntries();

    // Blocks of entries, filled in turn: the store grows without moving
    // what it holds, and an entry's address stays until Clear.
    static constexpr size_t BlockBits = 10;
    static constexpr size_t BlockMask = (size_t(1) << BlockBits) - 1;
    // Raw storage: an entry is built in place when it is added.
    std::vector<Entry *> m_blocks;
    int m_count = 0;
    // Key table: open addressing, at most half full. A key the filter has
    // never seen cannot be taken, so its slot is left to find later
    // (m_pending) with others, in one pass that overlaps their cache misses.
    mutable std::vector<Slot> m_slots;
    mutable std::vector<Slot> m_pending;
    std::vector<quint64> m_filter; // two bits of one word per key, about 8 bits per key
    // The key found last, as given: a tree's rows name the same parent
    // one after another.
    mutable QString m_lastKey;
    mutable int m_lastFound = 0;
    QSet<QString> m_sharedKeys; // folded keys that Append gave to several entries
    QHash<int, QString> m_data; // Data written by a host
    QHash<int, QVariant> m_tags;
    std::vector<std::shared_ptr<zelComboRecord>> m_made;
    quint64 m_generation = 0;
    int m_removed = 0;
};

} // namespace zel
