#include "grid/zelGridColumn.h"

#include "core/zelConvert.h"
#include "core/zelShared.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelGridColumn);

zelGridColumn::zelGridColumn(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelGridColumn>();
}

zelGridColumn::~zelGridColumn() = default;

void zelGridColumn::SetWidth(const QVariant &v)
{
    zel::Trail t(this, "Width Let");
    t.Run([&] { m_width = zel::CLng(v); });
}

void zelGridColumn::SetDecimals(const QVariant &v)
{
    zel::Trail t(this, "Decimals Let");
    t.Run([&] { m_decimals = zel::CLng(v); });
}

void zelGridColumn::SetDataType(const QVariant &v)
{
    zel::Trail t(this, "DataType Let");
    t.Run([&] { m_dataType = zel::CLng(v); });
}

void zelGridColumn::SetComboList(const QString &v)
{
    m_comboList = v;
}

void zelGridColumn::SetCaption(const QString &v)
{
    m_caption = v;
}

void zelGridColumn::SetAllowEdit(const QVariant &v)
{
    zel::Trail t(this, "AllowEdit Let");
    t.Run([&] { m_allowEdit = zel::CBool(v); });
}

void zelGridColumn::SetAlignment(const QVariant &v)
{
    zel::Trail t(this, "Alignment Let");
    // Any number is kept as it is: values outside the members read as the
    // grid's own default alignment.
    t.Run([&] { m_alignment = ZEL_Controls_ColumnAlign(zel::CLng(v)); });
}
