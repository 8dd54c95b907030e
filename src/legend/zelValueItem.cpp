#include "legend/zelValueItem.h"

#include "core/zelMissing.h"
#include "core/zelTrail.h"
#include "legend/zelLegendAccess_p.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelValueItem);

zelValueItem::zelValueItem(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelValueItem>();
}

zelValueItem::~zelValueItem() = default;

QString zelValueItem::Key() const
{
    return QString::number(m_identity) + QLatin1Char('K');
}

bool zelValueItem::IsNew() const
{
    return m_source.compare(QLatin1String("<new>"), Qt::CaseInsensitive) == 0;
}

void zelValueItem::CopyFrom(const zelValueItem &oItem)
{
    zelLegendAccess::SetIdentity(*this, zelLegendAccess::Identity(oItem));
    zelLegendAccess::SetSource(*this, oItem.Source());
    SetColor(oItem.Color());
    SetLabel(oItem.Label());
    SetValue(zel::IsMissing(oItem.Value()) ? QVariant() : oItem.Value());
}

void zelValueItem::CopyFrom(QObject *oItem)
{
    zel::Trail t(this, "CopyFrom");
    t.Run([&] {
        const auto *item = qobject_cast<const zelValueItem *>(oItem);
        if (!item)
            throw zelError(zelError::ObjectRequired);
        CopyFrom(*item);
    });
}

std::shared_ptr<zelValueItem> zelValueItem::Clone() const
{
    auto copy = std::make_shared<zelValueItem>();
    copy->CopyFrom(*this);
    return copy;
}
