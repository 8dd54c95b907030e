#include "files/zelFileFilters.h"

#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelFileFilters);

zelFileFilters::zelFileFilters(QObject *parent)
    : SharedObject(parent), m_filters(this, &zelFileFilter::Key)
{
    zel::RegisterShared<zelFileFilters>();
    zel::RegisterShared<zelFileFilter>();
}

zelFileFilters::~zelFileFilters() = default;

bool zelFileFilters::Add(QObject *oFileFilter)
{
    return Add(zel::SharedFromObject<zelFileFilter>(oFileFilter));
}

zelFileFilter::Ptr zelFileFilters::Create(const QString &sKey, const QString &sFilter,
                                          const QString &sName)
{
    zelFileFilter::Ptr filter;
    zel::Trail t(this, "Create");
    t.Run([&] {
        auto made = std::make_shared<zelFileFilter>();
        made->SetKey(sKey);
        made->SetFilter(sFilter);
        made->SetName(sName);
        if (Add(made))
            filter = made;
    });
    return filter;
}

QString zelFileFilters::ExportXML(const QString &sXML) const
{
    Q_UNUSED(sXML);
    return QString();
}
