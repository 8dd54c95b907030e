#pragma once

// Plain objects of the library (rows, columns, collections, enumerators)
// are QObjects owned through std::shared_ptr: whatever a host holds stays
// valid. They derive from zel::SharedObject<T>, which keeps one rule for
// every way such an object is made and let go:
//
// - Whoever makes an object with `new` or zel::CreateObject owns it as any
//   QObject: it deletes it or gives it a parent that will.
// - A collection that is handed such an object (Add by QObject *) takes a
//   shared reference of its own; the maker's ownership becomes a second
//   reference. `delete` on the object (by the host, its parent or
//   deleteLater) gives back that reference and leaves the object to the
//   collection; the object goes when the last reference goes.
// - `delete` on an object that the maker holds no reference to (one the
//   library made and handed out) frees nothing and is logged.
//
// RegisterShared<T>() lets a late-bound caller that gets a std::shared_ptr<T>
// in a QVariant (from invokeMethod or property) turn it into the QObject and
// go on by name:
//
//     QObject *row = qvariant_cast<QObject *>(zel::CallByName(grid, "AddItem", {...}));

#include "zelCtrlExport.h"

#include <QMetaType>
#include <QObject>
#include <QVariant>

#include <memory>
#include <new>

namespace zel {

namespace detail {
// Logs a `delete` that gave back no reference of the maker's.
ZELCTRL_EXPORT void LogRefusedDelete(const QObject *o) noexcept;
} // namespace detail

template <typename T> class SharedObject : public QObject, public std::enable_shared_from_this<T>
{
public:
    // The object's shared owner. An object that no shared pointer holds yet
    // gets one now, and its maker keeps a reference of its own.
    std::shared_ptr<T> SharedSelf()
    {
        if (auto p = this->weak_from_this().lock())
            return p;
        std::shared_ptr<T> p(static_cast<T *>(this));
        m_makerRef = p;
        return p;
    }

    // Every `delete` lands here, the shared pointer's own last one included.
    void operator delete(SharedObject *p, std::destroying_delete_t)
    {
        if (p->weak_from_this().expired()) {
            // No shared owner, or the last one is letting go: free it.
            void *memory = dynamic_cast<void *>(p);
            p->~SharedObject();
            ::operator delete(memory);
            return;
        }
        // The object outlives this delete: a parent that is going must not
        // stay behind as its parent.
        p->setParent(nullptr);
        if (!p->m_makerRef) {
            detail::LogRefusedDelete(p);
            return;
        }
        // Dropping the maker's reference frees the object when it was the last.
        std::shared_ptr<T> maker = std::move(p->m_makerRef);
    }

protected:
    explicit SharedObject(QObject *parent = nullptr) : QObject(parent) {}
    ~SharedObject() override = default;

private:
    std::shared_ptr<T> m_makerRef;
};

// The shared owner of a late-bound reference to a T (see SharedSelf);
// nothing when o is not a T.
template <typename T> std::shared_ptr<T> SharedFromObject(QObject *o)
{
    auto *t = qobject_cast<T *>(o);
    return t ? t->SharedSelf() : std::shared_ptr<T>();
}

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
