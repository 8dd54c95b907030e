#include "platform/zelLateBinding.h"

#include "core/zelTrail.h"

#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>

#include <vector>

namespace zel {

namespace {

int findProperty(const QMetaObject *mo, const QString &name)
{
    // The most derived class first: "WIDTH" is the control's Width, not
    // QWidget's width.
    for (int i = mo->propertyCount() - 1; i >= 0; --i)
        if (QString::fromLatin1(mo->property(i).name()).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

// Converts a value to a parameter's type; a QVariant parameter takes it as is.
bool convertTo(QVariant &v, QMetaType type)
{
    if (type == QMetaType::fromType<QVariant>() || v.metaType() == type)
        return true;
    if (!v.isValid()) {
        v = QVariant(type);
        return true;
    }
    return v.convert(type);
}

// A late-bound caller that names nothing the object has, or hands a value
// that does not fit, hears of it through the error trail under the member's
// trail name, as a script would; the object stays as it was. The log reaches
// its logger late bound too, so a failure on that way is not reported again.
bool reportFailure(const QObject *object, const QString &member, qint32 number)
{
    static thread_local bool reporting = false;
    if (!reporting) {
        reporting = true;
        zel::Trail t(QString::fromLatin1(object->metaObject()->className()) + QLatin1Char('.') +
                     member);
        t.Run([number] { throw zelError(number); });
        reporting = false;
    }
    return false;
}

} // namespace

QMetaType ParameterType(const QMetaMethod &m, int p)
{
    const QMetaType t = m.parameterMetaType(p);
    if (t.isValid())
        return t;
    QByteArray name = m.parameterTypes().value(p);
    if (name.endsWith('&'))
        name.chop(1);
    return QMetaType::fromName(name);
}

QVariant GetProperty(const QObject *object, const QString &name)
{
    if (!object)
        return {};
    const int idx = findProperty(object->metaObject(), name);
    if (idx < 0)
        return {};
    return object->metaObject()->property(idx).read(object);
}

bool SetProperty(QObject *object, const QString &name, const QVariant &value)
{
    if (!object)
        return false;
    const int idx = findProperty(object->metaObject(), name);
    if (idx < 0)
        return reportFailure(object, name + QStringLiteral(" Let"), zelError::NotSupported);
    const QMetaProperty prop = object->metaObject()->property(idx);
    if (!prop.isWritable())
        return false; // a host may try whether an object property can be replaced
    const QString let = QString::fromLatin1(prop.name()) + QStringLiteral(" Let");
    // Qt's own conversion decides what a typed property takes, and refuses
    // before the setter runs; the library's QVariant properties convert and
    // refuse in their setters.
    return prop.write(object, value) || reportFailure(object, let, zelError::TypeMismatch);
}

QVariant CallByName(QObject *object, const QString &method, QVariantList &args, bool *ok)
{
    if (ok)
        *ok = false;
    if (!object)
        return {};
    const QMetaObject *mo = object->metaObject();
    qint32 failure = zelError::NotSupported;
    for (int i = mo->methodCount() - 1; i >= 0; --i) {
        const QMetaMethod m = mo->method(i);
        if (m.methodType() != QMetaMethod::Method && m.methodType() != QMetaMethod::Slot)
            continue;
        if (QString::fromLatin1(m.name()).compare(method, Qt::CaseInsensitive) != 0)
            continue;
        if (m.parameterCount() != args.size()) {
            if (failure == zelError::NotSupported)
                failure = zelError::WrongArgumentCount;
            continue;
        }
        failure = zelError::TypeMismatch;

        QVariantList converted = args;
        bool convertible = true;
        for (int p = 0; p < m.parameterCount() && convertible; ++p)
            convertible = convertTo(converted[p], ParameterType(m, p));
        if (!convertible)
            continue;

        // A method that answers a QVariant writes it straight into result.
        QVariant result;
        const QMetaType rt = m.returnMetaType();
        const bool variantResult = rt == QMetaType::fromType<QVariant>();
        if (rt.isValid() && rt.id() != QMetaType::Void && !variantResult)
            result = QVariant(rt);

        // Each argument is handed over as the address of its storage, so that
        // a by-reference parameter writes back into converted[p].
        std::vector<void *> argv(size_t(m.parameterCount()) + 1);
        argv[0] = variantResult ? static_cast<void *>(&result)
                                : (result.isValid() ? result.data() : nullptr);
        for (int p = 0; p < m.parameterCount(); ++p)
            argv[size_t(p) + 1] = ParameterType(m, p) == QMetaType::fromType<QVariant>()
                                      ? static_cast<void *>(&converted[p])
                                      : converted[p].data();
        object->qt_metacall(QMetaObject::InvokeMetaMethod, i, argv.data());
        args = converted;
        if (ok)
            *ok = true;
        return result;
    }
    reportFailure(object, method, failure);
    return {};
}

QVariant CallByName(QObject *object, const QString &method, const QVariantList &args, bool *ok)
{
    QVariantList copy = args;
    return CallByName(object, method, copy, ok);
}

} // namespace zel
