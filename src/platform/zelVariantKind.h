#pragma once

// What kind of value a QVariant holds, as the classic conversions see it.

#include <QVariant>

namespace zel {

// True for the integer and floating-point types (and plain chars);
// Booleans count only when asked, since True converts to -1.
inline bool IsNumber(const QVariant &v, bool booleanCounts = false)
{
    switch (v.metaType().id()) {
    case QMetaType::Bool:
        return booleanCounts;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return true;
    default:
        return false;
    }
}

} // namespace zel
