#include "zelGallery.h"

#include "platform/zelLateBinding.h"

#include <QMetaMethod>
#include <QVariant>

std::vector<zelGalleryPage> &zelGalleryPages()
{
    static std::vector<zelGalleryPage> pages;
    return pages;
}

zelEventLog::zelEventLog(QWidget *parent) : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("txtEventLog"));
    setReadOnly(true);
    setMaximumBlockCount(2000);
}

zelEventLog::~zelEventLog() = default;

void zelEventLog::Say(const QString &line)
{
    appendPlainText(line);
}

void zelEventLog::Watch(QObject *control, const QString &label)
{
    const QMetaObject *mo = control->metaObject();
    // The library's classes are the ones whose names begin with "zel".
    const QMetaObject *base = mo;
    while (base->superClass() && QByteArray(base->superClass()->className()).startsWith("zel"))
        base = base->superClass();
    const int first = base->superClass() ? base->superClass()->methodCount() : 0;
    for (int i = first; i < mo->methodCount(); ++i) {
        const QMetaMethod m = mo->method(i);
        if (m.methodType() != QMetaMethod::Signal || m.name() == "PropertyChanged")
            continue;
        const int slotId = metaObject()->methodCount() + int(m_slots.size());
        m_slots.push_back({control, i, label});
        QMetaObject::connect(control, i, this, slotId, Qt::DirectConnection);
    }
}

int zelEventLog::qt_metacall(QMetaObject::Call call, int id, void **args)
{
    id = QPlainTextEdit::qt_metacall(call, id, args);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    if (id < int(m_slots.size())) {
        const Slot &s = m_slots[size_t(id)];
        const QMetaMethod m = s.sender->metaObject()->method(s.signalIndex);
        QStringList parts;
        for (int p = 0; p < m.parameterCount(); ++p) {
            const QVariant v(zel::ParameterType(m, p), args[p + 1]);
            parts << QString::fromLatin1(m.parameterNames().value(p)) + QLatin1Char('=') +
                         (v.canConvert<QString>() ? v.toString()
                                                  : QString::fromLatin1(v.typeName()));
        }
        Say(s.label + QLatin1Char('.') + QString::fromLatin1(m.name()) + QLatin1Char('(') +
            parts.join(QStringLiteral(", ")) + QLatin1Char(')'));
    }
    return -1;
}
