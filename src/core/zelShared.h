#pragma once

// Plain objects of the library (records, rows, columns, collections) are
// QObjects without a parent, owned through std::shared_ptr: whatever a host
// holds stays valid. RegisterShared<T>() lets a late-bound caller that gets a
// std::shared_ptr<T> in a QVariant (from invokeMethod or property) turn it
// into the QObject and go on by name:
//
//     QObject *row = qvariant_cast<QObject *>(zel::CallByName(grid, "AddItem", {...}));

#include <QMetaType>
#include <QObject>
#include <QVariant>

#include <memory>

namespace zel {

template <typename T> void RegisterShared()
{
    static const bool once = [] {
        if (!QMetaType::hasRegisteredConverterFunction<std::shared_ptr<T>, QObject *>())
            QMetaType::registerConverter<std::shared_ptr<T>, QObject *>(
                [](const std::shared_ptr<T> &p) -> QObject * { return p.get(); });
        return true;
    }();
    (void)once;
}

// The object inside a QVariant: a QObject pointer or a registered shared pointer.
inline QObject *ObjectOf(const QVariant &v)
{
    return v.canConvert<QObject *>() ? qvariant_cast<QObject *>(v) : nullptr;
}

} // namespace zel
