#pragma once

// Reads a control's persisted properties from a property bag. Each key is
// read and converted on its own: a stored value that does not read as its
// type is logged (with the key as the step marker) and the default is used,
// so one hand-edited key never costs the others.

#include "core/zelTrail.h"
#include "platform/zelPropertyBag.h"
#include "zelCtrlExport.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace zel {

class ZELCTRL_EXPORT PropertyReader
{
public:
    PropertyReader(zelPropertyBag &bag, const QObject *owner)
        : m_bag(bag), m_trail(owner, "UserControl_ReadProperties")
    {}

    qint16 Int(const QString &key, qint16 def);
    qint32 Long(const QString &key, qint32 def);
    double Double(const QString &key, double def);
    bool Bool(const QString &key, bool def);
    QString String(const QString &key, const QString &def);
    // The raw stored value (def when absent), for setters that convert it
    // themselves.
    QVariant Raw(const QString &key, const QVariant &def);

private:
    template <typename T, typename Conv> T read(const QString &key, const T &def, Conv conv);

    zelPropertyBag &m_bag;
    Trail m_trail;
};

} // namespace zel
