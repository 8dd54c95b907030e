#pragma once

// One named file-type filter of the file explorer: a key, a pattern
// ("*.shp", or several joined by ";") and the name the filter combo shows.

#include "core/zelShared.h"
#include "zelCtrlExport.h"

#include <QObject>
#include <QString>

#include <memory>

class ZELCTRL_EXPORT zelFileFilter : public zel::SharedObject<zelFileFilter>
{
    Q_OBJECT
    Q_PROPERTY(QString Key READ Key WRITE SetKey)
    Q_PROPERTY(QString Filter READ Filter WRITE SetFilter)
    Q_PROPERTY(QString Name READ Name WRITE SetName)

public:
    using Ptr = std::shared_ptr<zelFileFilter>;

    Q_INVOKABLE explicit zelFileFilter(QObject *parent = nullptr);
    ~zelFileFilter() override;

    // Takes a value only while it is still empty: once set, a filter's key
    // never changes, so a filter collection can trust it as its key.
    QString Key() const { return m_key; }
    void SetKey(const QString &v);
    // By default "*.*".
    QString Filter() const { return m_filter; }
    void SetFilter(const QString &v) { m_filter = v; }
    // The name set, or else the key.
    QString Name() const { return m_name.isEmpty() ? m_key : m_name; }
    void SetName(const QString &v) { m_name = v; }

private:
    QString m_key;
    QString m_filter = QStringLiteral("*.*");
    QString m_name;
};
