#pragma once

// The filters a file explorer offers, in the order they were added, keyed
// by each filter's Key (letter case ignored).

#include "core/zelShared.h"
#include "files/zelFileCollection.h"
#include "files/zelFileFilter.h"

#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelFileFilters : public zel::SharedObject<zelFileFilters>
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Item", "0")
    Q_CLASSINFO("DispId.NewEnum", "-4")
    Q_PROPERTY(qint32 Count READ Count)

public:
    using Ptr = std::shared_ptr<zelFileFilters>;

    Q_INVOKABLE explicit zelFileFilters(QObject *parent = nullptr);
    ~zelFileFilters() override;

    // By key or by 1-based position; nothing when absent.
    Q_INVOKABLE zelFileFilter::Ptr Item(const QVariant &vKey) const { return m_filters.Item(vKey); }
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const { return m_filters.NewEnum(); }
    Q_INVOKABLE qint32 Count() const { return m_filters.Count(); }
    Q_INVOKABLE bool Remove(const QVariant &vKey) { return m_filters.Remove(vKey); }
    Q_INVOKABLE void Clear() { m_filters.Clear(); }
    // False when a filter of the same Key is there already.
    bool Add(const zelFileFilter::Ptr &oFileFilter) { return m_filters.Add(oFileFilter); }
    Q_INVOKABLE bool Add(QObject *oFileFilter);
    // A new filter with these values, added; nothing when the key is taken.
    Q_INVOKABLE zelFileFilter::Ptr Create(const QString &sKey, const QString &sFilter,
                                          const QString &sName = QString());
    // Kept for hosts of the classic collection: answers "".
    QString ExportXML(const QString &sXML) const;

    zel::zelKeyedCollection<zelFileFilter>::const_iterator begin() const
    {
        return m_filters.items().begin();
    }
    zel::zelKeyedCollection<zelFileFilter>::const_iterator end() const
    {
        return m_filters.items().end();
    }

private:
    zel::zelFileCollection<zelFileFilter> m_filters;
};
