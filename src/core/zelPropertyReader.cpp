#include "core/zelPropertyReader.h"

#include "core/zelConvert.h"

namespace zel {

template <typename T, typename Conv>
T PropertyReader::read(const QString &key, const T &def, Conv conv)
{
    T value = def;
    m_trail.Step = QStringLiteral("Reading ") + key;
    m_trail.Run([&] { value = conv(m_bag.ReadProperty(key, QVariant::fromValue(def))); });
    m_trail.Step.clear();
    return value;
}

qint16 PropertyReader::Int(const QString &key, qint16 def)
{
    return read<qint16>(key, def, [](const QVariant &v) { return CInt(v); });
}

qint32 PropertyReader::Long(const QString &key, qint32 def)
{
    return read<qint32>(key, def, [](const QVariant &v) { return CLng(v); });
}

double PropertyReader::Double(const QString &key, double def)
{
    return read<double>(key, def, [](const QVariant &v) { return CDbl(v); });
}

bool PropertyReader::Bool(const QString &key, bool def)
{
    return read<bool>(key, def, [](const QVariant &v) { return CBool(v); });
}

QString PropertyReader::String(const QString &key, const QString &def)
{
    return read<QString>(key, def, [](const QVariant &v) { return CStr(v); });
}

QVariant PropertyReader::Raw(const QString &key, const QVariant &def)
{
    return read<QVariant>(key, def, [](const QVariant &v) { return v; });
}

} // namespace zel
