#include "lists/zelComboRecords.h"

#include "core/zelConvert.h"
#include "core/zelKeyedCollectionDetail.h"
#include "core/zelTrail.h"
#include "platform/zelVariantKind.h"

namespace {
constexpr qint32 ObjectVariableNotSet = 91;
}

zelComboRecords::zelComboRecords(QObject *parent)
    : SharedObject(parent), m_store(std::make_shared<zel::zelRecordStore>())
{
    zel::RegisterShared<zelComboRecords>();
    zel::RegisterShared<zelComboRecord>();
}

zelComboRecords::~zelComboRecords() = default;

int zelComboRecords::entryOf(const QVariant &vKey) const
{
    if (zel::IsNumber(vKey))
        return m_store->RecordAt(zel::detail::PositionOf(vKey.toDouble(), m_store->RecordCount()));
    if (vKey.metaType().id() == QMetaType::QString)
        return m_store->Find(vKey.toString());
    return 0;
}

zelComboRecords::Ptr zelComboRecords::Item(const QVariant &vKey) const
{
    try {
        return m_store->Object(entryOf(vKey));
    } catch (...) {
    }
    return {};
}

std::shared_ptr<zelGridEnumerator> zelComboRecords::NewEnum() const
{
    struct Walk
    {
        std::weak_ptr<zel::zelRecordStore> store;
        quint64 generation = 0;
        int position = 0;
        Ptr Next()
        {
            const auto s = store.lock();
            if (!s || s->Generation() != generation)
                return {};
            return s->Object(s->RecordAt(++position));
        }
        void Reset() { position = 0; }
    };
    return zelGridEnumerator::Make(Walk{m_store, m_store->Generation(), 0});
}

int zelComboRecords::CreateEntry(const QString &sKey, const QString &sData, const QVariant &oTag,
                                 const QString &sParentKey)
{
    // The parent is looked for before the record is there: a record is
    // never its own parent.
    const int parent = sParentKey.isEmpty() ? 0 : m_store->Find(sParentKey);
    const int n = m_store->Create(sKey, sData);
    if (n == 0)
        return 0;
    if (oTag.isValid())
        m_store->SetTag(n, oTag);
    m_store->At(n).parent = parent;
    return n;
}

zelComboRecords::Ptr zelComboRecords::CreateRecord(const QString &sKey, const QString &sData,
                                                   const QVariant &oTag, const QString &sParentKey)
{
    try {
        return m_store->Object(CreateEntry(sKey, sData, oTag, sParentKey));
    } catch (...) {
    }
    return {};
}

bool zelComboRecords::AddRecord(const Ptr &record)
{
    try {
        if (!record)
            return false;
        const int n = m_store->Create(record->Key(), record->Data());
        if (n == 0)
            return false;
        m_store->SetTag(n, record->Tag());
        m_store->At(n).level = record->Level();
        // The record goes on answering for itself.
        m_store->Adopt(n, record);
        return true;
    } catch (...) {
        return false;
    }
}

bool zelComboRecords::RemoveRecord(const QVariant &vKey)
{
    const int removed = entryOf(vKey);
    if (removed == 0)
        return false;
    zel::Trail t(this, "RemoveRecord");
    return t.Run([&] {
        // Every record gets its object: each holds its Parent as an object,
        // the removed one too, as a plain counted reference.
        for (int n = 1; n <= m_store->Count(); ++n)
            if (!m_store->At(n).removed)
                m_store->Object(n);
        m_store->Remove(removed);
        // The key is compared as the classic comparison of a string with a
        // variant does: exactly for a string, as a number for a number.
        const bool byNumber = zel::IsNumber(vKey);
        const QString key = vKey.toString();
        for (const Ptr &record : *this) {
            const Ptr parent = record->Parent();
            if (!parent)
                throw zelError(ObjectVariableNotSet, {}, QStringLiteral("Object variable not set"));
            const bool same =
                byNumber ? zel::CDbl(parent->Key()) == vKey.toDouble() : parent->Key() == key;
            if (same)
                record->SetParent(nullptr);
        }
    });
}
