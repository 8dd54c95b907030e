#include "platform/zelPropertyBag.h"

#include "platform/zelVariantKind.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonValue>
#include <QSaveFile>
#include <QSettings>

zelPropertyBag::~zelPropertyBag() = default;
zelPersistable::~zelPersistable() = default;

namespace {

bool isNumberOrBool(const QVariant &v)
{
    return zel::IsNumber(v, true);
}

} // namespace

bool zelSameAsDefault(const QVariant &value, const QVariant &def)
{
    if (isNumberOrBool(value) && isNumberOrBool(def))
        return value.toDouble() == def.toDouble();
    return value.toString() == def.toString();
}

QVariant zelMemoryPropertyBag::ReadProperty(const QString &name, const QVariant &def)
{
    const auto it = m_values.constFind(name);
    return it == m_values.constEnd() ? def : *it;
}

void zelMemoryPropertyBag::WriteProperty(const QString &name, const QVariant &value,
                                         const QVariant &def)
{
    if (def.isValid() && zelSameAsDefault(value, def))
        m_values.remove(name);
    else
        m_values.insert(name, value);
}

QVariant zelJsonPropertyBag::ReadProperty(const QString &name, const QVariant &def)
{
    const QJsonValue v = m_object.value(name);
    if (v.isUndefined())
        return def;
    return v.toVariant();
}

void zelJsonPropertyBag::WriteProperty(const QString &name, const QVariant &value,
                                       const QVariant &def)
{
    if (def.isValid() && zelSameAsDefault(value, def))
        m_object.remove(name);
    else
        m_object.insert(name, QJsonValue::fromVariant(value));
}

bool zelJsonPropertyBag::Load(const QString &fileName, QString *errorText)
{
    m_object = QJsonObject();
    QFile f(fileName);
    if (!f.open(QIODevice::ReadOnly)) {
        if (errorText)
            *errorText = f.errorString();
        return false;
    }
    QJsonParseError err{};
    const QJsonDocument doc = QJsonDocument::fromJson(f.readAll(), &err);
    if (err.error != QJsonParseError::NoError || !doc.isObject()) {
        if (errorText)
            *errorText = err.error != QJsonParseError::NoError
                             ? err.errorString()
                             : QStringLiteral("not a JSON object");
        return false;
    }
    m_object = doc.object();
    return true;
}

bool zelJsonPropertyBag::Save(const QString &fileName, QString *errorText) const
{
    QSaveFile f(fileName);
    if (!f.open(QIODevice::WriteOnly)) {
        if (errorText)
            *errorText = f.errorString();
        return false;
    }
    f.write(QJsonDocument(m_object).toJson());
    if (!f.commit()) {
        if (errorText)
            *errorText = f.errorString();
        return false;
    }
    return true;
}

zelSettingsPropertyBag::zelSettingsPropertyBag(QSettings &settings, const QString &group)
    : m_settings(settings), m_group(group)
{}

QVariant zelSettingsPropertyBag::ReadProperty(const QString &name, const QVariant &def)
{
    m_settings.beginGroup(m_group);
    const QVariant v = m_settings.value(name, def);
    m_settings.endGroup();
    return v;
}

void zelSettingsPropertyBag::WriteProperty(const QString &name, const QVariant &value,
                                           const QVariant &def)
{
    m_settings.beginGroup(m_group);
    if (def.isValid() && zelSameAsDefault(value, def))
        m_settings.remove(name);
    else
        m_settings.setValue(name, value);
    m_settings.endGroup();
}
