#include "legend/zelRangeItem.h"

#include "core/zelMissing.h"
#include "core/zelTrail.h"
#include "legend/zelLegendAccess_p.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelRangeItem);

zelRangeItem::zelRangeItem(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelRangeItem>();
}

zelRangeItem::~zelRangeItem() = default;

QString zelRangeItem::Key() const
{
    return QString::number(m_identity) + QLatin1Char('K');
}

void zelRangeItem::CopyFrom(const zelRangeItem &oItem)
{
    SetIndex(oItem.Index());
    zelLegendAccess::SetIdentity(*this, zelLegendAccess::Identity(oItem));
    SetMin(oItem.Min());
    SetMax(oItem.Max());
    SetInterpolate(oItem.Interpolate());
    SetIncludeLowerBound(oItem.IncludeLowerBound());
    SetIsMin(oItem.IsMin());
    SetIsMax(oItem.IsMax());
    SetColor(oItem.Color());
    SetLabel(oItem.Label());
    SetValue(zel::IsMissing(oItem.Value()) ? QVariant(qint32(0)) : oItem.Value());
}

void zelRangeItem::CopyFrom(QObject *oItem)
{
    zel::Trail t(this, "CopyFrom");
    t.Run([&] {
        const auto *item = qobject_cast<const zelRangeItem *>(oItem);
        if (!item)
            throw zelError(zelError::ObjectRequired);
        CopyFrom(*item);
    });
}

std::shared_ptr<zelRangeItem> zelRangeItem::Clone() const
{
    auto copy = std::make_shared<zelRangeItem>();
    copy->CopyFrom(*this);
    return copy;
}
