#pragma once

// The marker of an optional argument that a caller left out. A late-bound
// caller passes zel::Missing() where it has nothing to give; the classes that
// take optional values (Create of the legend editors) tell it from every
// value a host could mean, including an empty QVariant.

#include "zelCtrlExport.h"

#include <QMetaType>
#include <QVariant>

struct zelMissingArgument
{
    friend bool operator==(zelMissingArgument, zelMissingArgument) { return true; }
    friend bool operator!=(zelMissingArgument, zelMissingArgument) { return false; }
};
Q_DECLARE_METATYPE(zelMissingArgument)

namespace zel {

inline QVariant Missing()
{
    return QVariant::fromValue(zelMissingArgument());
}

inline bool IsMissing(const QVariant &v)
{
    return v.metaType() == QMetaType::fromType<zelMissingArgument>();
}

} // namespace zel
