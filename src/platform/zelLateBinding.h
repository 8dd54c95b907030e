#pragma once

// Late-bound access by name, as a script engine or another language binding
// reaches an object: properties and methods are looked up by name without
// regard to letter case, arguments are converted to the parameter types, and
// by-reference parameters come back in the argument list.

#include "zelCtrlExport.h"
#include <QMetaMethod>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QVariantList>

namespace zel {

// The value of a property; an invalid QVariant when there is no such property.
ZELCTRL_EXPORT QVariant GetProperty(const QObject *object, const QString &name);
// Writes a property; false when there is no such writable property or the
// value cannot be converted to its type. No such property (error 438) and a
// value that does not convert (error 13) are logged under
// "<Class>.<Property> Let"; the property stays as it was.
ZELCTRL_EXPORT bool SetProperty(QObject *object, const QString &name, const QVariant &value);

// Calls a Q_INVOKABLE method or slot by name with as many arguments as args
// holds (a method with defaults is found with fewer). Answers the method's
// result, and writes back the by-reference arguments into args. ok (when
// given) says whether a method was found and called; when not, the failure is
// logged under "<Class>.<method>": 438 for no such method, 450 for none
// with that many parameters, 13 for arguments that do not convert.
ZELCTRL_EXPORT QVariant CallByName(QObject *object, const QString &method, QVariantList &args,
                                   bool *ok = nullptr);
ZELCTRL_EXPORT QVariant CallByName(QObject *object, const QString &method,
                                   const QVariantList &args = {}, bool *ok = nullptr);

// The type of a method's or signal's parameter. A non-const reference (a
// by-reference argument such as KeyAscii) carries no meta type of its own;
// it is looked up by its name without the "&".
ZELCTRL_EXPORT QMetaType ParameterType(const QMetaMethod &method, int index);

} // namespace zel
