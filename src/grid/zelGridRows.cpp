#include "grid/zelGridRows.h"

#include "core/zelShared.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelGridRows);

zelGridRows::zelGridRows(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelGridRows>();
    zel::RegisterShared<zelGridRow>();
}

zelGridRows::~zelGridRows() = default;

bool zelGridRows::Add(const std::shared_ptr<zelGridRow> &rhs)
{
    try {
        return rhs && m_items.Add(rhs, rhs->Key());
    } catch (...) {
        return false;
    }
}

bool zelGridRows::Add(QObject *rhs)
{
    try {
        return Add(zel::SharedFromObject<zelGridRow>(rhs));
    } catch (...) {
        return false;
    }
}

std::shared_ptr<zelGridRow> zelGridRows::Create(const QString &sKey, const QString &sData,
                                                const QVariant &oTag)
{
    try {
        auto row = std::make_shared<zelGridRow>();
        row->SetTag(oTag);
        row->SetKey(sKey);
        row->SetData(sData);
        if (Add(row))
            return row;
    } catch (...) {
    }
    return {};
}

bool zelGridRows::Move(qint32 &lOldIndex, qint32 &lNewIndex)
{
    bool result = false;
    static const QString trail = QStringLiteral("zelGridRows.Move");
    zel::Trail t(trail);
    t.Run([&] {
        const qint32 count = m_items.Count();
        if (lOldIndex < 1 || lNewIndex > count)
            return;
        const std::shared_ptr<zelGridRow> row = m_items.ItemAt(lOldIndex);
        if (!row)
            throw zelError(zelError::SubscriptOutOfRange);
        // The row goes back under the key it was added with.
        const QString key = m_items.KeyAt(lOldIndex);
        m_items.RemoveAt(lOldIndex);
        if (lNewIndex > m_items.Count()) {
            if (!m_items.Add(row, key))
                throw zelError(zelError::InvalidProcedureCall);
        } else {
            if (lNewIndex < 1 || !m_items.Add(row, key, lNewIndex))
                throw zelError(zelError::InvalidProcedureCall);
        }
        result = true;
    });
    return result;
}

bool zelGridRows::Remove(const QVariant &vKey)
{
    try {
        return m_items.Remove(vKey);
    } catch (...) {
        return false;
    }
}

std::shared_ptr<zelGridRow> zelGridRows::Item(const QVariant &vKey) const
{
    try {
        return m_items.Item(vKey);
    } catch (...) {
        return {};
    }
}

void zelGridRows::Clear()
{
    m_items.Clear();
}

std::shared_ptr<zelGridEnumerator> zelGridRows::NewEnum() const
{
    return zelGridEnumerator::Make(m_items.NewEnum());
}
