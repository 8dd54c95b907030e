#pragma once

// Turning a late-bound object reference back into the shared pointer that
// the collections hold.

#include <QObject>

#include <memory>

namespace zel {

// The shared owner of o when a shared pointer already holds it. An object
// without parent and without shared owner (one made by program identifier)
// is adopted: from now on the collection's references keep it alive, as a
// counted reference would. An object that a parent owns is refused.
template <typename T> std::shared_ptr<T> SharedFromObject(QObject *o)
{
    auto *t = qobject_cast<T *>(o);
    if (!t)
        return {};
    if (auto p = t->weak_from_this().lock())
        return p;
    if (t->parent())
        return {};
    return std::shared_ptr<T>(t);
}

} // namespace zel
