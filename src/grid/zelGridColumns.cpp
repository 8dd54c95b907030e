#include "grid/zelGridColumns.h"

#include "core/zelShared.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelGridColumns);

zelGridColumns::zelGridColumns(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelGridColumns>();
    zel::RegisterShared<zelGridColumn>();
}

zelGridColumns::~zelGridColumns() = default;

bool zelGridColumns::Add(const std::shared_ptr<zelGridColumn> &rhs)
{
    try {
        return rhs && m_items.Add(rhs, rhs->Caption());
    } catch (...) {
        return false;
    }
}

bool zelGridColumns::Add(QObject *rhs)
{
    try {
        return Add(zel::SharedFromObject<zelGridColumn>(rhs));
    } catch (...) {
        return false;
    }
}

std::shared_ptr<zelGridColumn> zelGridColumns::Create(const QString &sCaption,
                                                      ZEL_Controls_ColumnAlign eAlignment)
{
    try {
        auto column = std::make_shared<zelGridColumn>();
        column->SetCaption(sCaption);
        column->SetAlignment(int(eAlignment));
        if (Add(column))
            return column;
    } catch (...) {
    }
    return {};
}

bool zelGridColumns::Remove(const QVariant &vKey)
{
    try {
        return m_items.Remove(vKey);
    } catch (...) {
        return false;
    }
}

std::shared_ptr<zelGridColumn> zelGridColumns::Item(const QVariant &vKey) const
{
    try {
        return m_items.Item(vKey);
    } catch (...) {
        return {};
    }
}

void zelGridColumns::Clear()
{
    m_items.Clear();
}

std::shared_ptr<zelGridEnumerator> zelGridColumns::NewEnum() const
{
    return zelGridEnumerator::Make(m_items.NewEnum());
}
