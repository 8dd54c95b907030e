#include "files/zelFileFilter.h"

#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelFileFilter);

zelFileFilter::zelFileFilter(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelFileFilter>();
}

zelFileFilter::~zelFileFilter() = default;

void zelFileFilter::SetKey(const QString &v)
{
    if (m_key.isEmpty())
        m_key = v;
}
