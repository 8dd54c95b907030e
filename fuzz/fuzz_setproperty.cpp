// Late-bound property writes on every registered class: names of the class's
// own properties in any letter case, or made up, with values of many QVariant
// types. Nothing may crash, and every property still reads afterwards.

#include "zelFuzzSupport.h"

#include "platform/zelLateBinding.h"

#include <QMetaProperty>

namespace {

// The properties that the library's classes declare, not those of Qt's bases.
QList<QByteArray> ownProperties(const QObject *o)
{
    const QMetaObject *qt = o->metaObject();
    while (qt && QByteArray(qt->className()).startsWith("zel"))
        qt = qt->superClass();
    QList<QByteArray> names;
    for (int i = qt ? qt->propertyCount() : 0; i < o->metaObject()->propertyCount(); ++i)
        names.append(o->metaObject()->property(i).name());
    return names;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    zelfuzz::Bytes in(data, size);
    QObject *o = zelfuzz::objects[in.Byte() % zelfuzz::objects.size()];
    if (auto *p = dynamic_cast<zelPersistable *>(o))
        zelfuzz::Reset(p);
    const QList<QByteArray> names = ownProperties(o);
    for (int n = 0; n < 8 && size > 0; ++n) {
        const uint8_t pick = in.Byte();
        QString name = pick < 224 && !names.isEmpty()
                           ? QString::fromLatin1(names[pick % names.size()])
                           : in.Text(pick % 16);
        if (pick & 1)
            name = name.toUpper();
        zel::SetProperty(o, name, in.Variant());
    }
    for (const QByteArray &name : names)
        (void)zel::GetProperty(o, QString::fromLatin1(name));
    return 0;
}
