#include "lists/zelComboRecords.h"

#include "core/zelConvert.h"
#include "core/zelTrail.h"
#include "platform/zelVariantKind.h"

namespace {
constexpr qint32 ObjectVariableNotSet = 91;
}

zelComboRecords::zelComboRecords(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelComboRecords>();
    zel::RegisterShared<zelComboRecord>();
}

zelComboRecords::~zelComboRecords() = default;

zelComboRecords::Ptr zelComboRecords::Item(const QVariant &vKey) const
{
    try {
        if (zel::IsNumber(vKey) || vKey.metaType().id() == QMetaType::QString)
            return m_items.Item(vKey);
    } catch (...) {
    }
    return {};
}

std::shared_ptr<zelGridEnumerator> zelComboRecords::NewEnum() const
{
    return zelGridEnumerator::Make(m_items.NewEnum());
}

zelComboRecords::Ptr zelComboRecords::CreateRecord(const QString &sKey, const QString &sData,
                                                   const QVariant &oTag, const QString &sParentKey)
{
    try {
        auto record = std::make_shared<zelComboRecord>();
        zel::detail::ComboRecordAccess::SetKey(*record, sKey);
        record->SetData(sData);
        record->SetTag(oTag);
        if (!sParentKey.isEmpty())
            record->SetParent(m_items.ItemByKey(sParentKey));
        if (AddRecord(record))
            return record;
    } catch (...) {
    }
    return {};
}

bool zelComboRecords::AddRecord(const Ptr &record)
{
    try {
        return record && m_items.Add(record, record->Key());
    } catch (...) {
        return false;
    }
}

bool zelComboRecords::RemoveRecord(const QVariant &vKey)
{
    if (!m_items.Remove(vKey))
        return false;
    zel::Trail t(this, "RemoveRecord");
    return t.Run([&] {
        // The key is compared as the classic comparison of a string with a
        // variant does: exactly for a string, as a number for a number.
        const bool byNumber = zel::IsNumber(vKey);
        const QString key = vKey.toString();
        for (const Ptr &record : m_items) {
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
