#pragma once

// The host's property store, where a control keeps its design-time
// properties between sessions. A value equal to its default is not stored,
// so that a bag holds only what differs from a newly placed control.

#include "zelCtrlExport.h"
#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QVariant>

#include <memory>

class QSettings;

class ZELCTRL_EXPORT zelPropertyBag
{
public:
    virtual ~zelPropertyBag();
    virtual QVariant ReadProperty(const QString &name, const QVariant &def) = 0;
    virtual void WriteProperty(const QString &name, const QVariant &value, const QVariant &def) = 0;
};

// What every control offers its host's property store: defaults for a newly
// placed control, and every design-time property read back or saved.
class ZELCTRL_EXPORT zelPersistable
{
public:
    virtual ~zelPersistable();
    virtual void InitProperties() = 0;
    virtual void ReadProperties(zelPropertyBag &bag) = 0;
    virtual void WriteProperties(zelPropertyBag &bag) const = 0;
};

// Compares the way a stored value is compared with its default: numbers by
// value (2 == 2.0), everything else as text.
ZELCTRL_EXPORT bool zelSameAsDefault(const QVariant &value, const QVariant &def);

class ZELCTRL_EXPORT zelMemoryPropertyBag : public zelPropertyBag
{
public:
    QVariant ReadProperty(const QString &name, const QVariant &def) override;
    void WriteProperty(const QString &name, const QVariant &value, const QVariant &def) override;

    // What is stored, for hosts that keep a form in memory and for tests.
    bool Contains(const QString &name) const { return m_values.contains(name); }
    QVariant Value(const QString &name) const { return m_values.value(name); }
    void SetValue(const QString &name, const QVariant &value) { m_values.insert(name, value); }
    qsizetype Count() const { return m_values.size(); }
    void Clear() { m_values.clear(); }

private:
    QHash<QString, QVariant> m_values;
};

// One JSON object, read from and saved to a file.
class ZELCTRL_EXPORT zelJsonPropertyBag : public zelPropertyBag
{
public:
    zelJsonPropertyBag() = default;
    explicit zelJsonPropertyBag(const QJsonObject &object) : m_object(object) {}

    QVariant ReadProperty(const QString &name, const QVariant &def) override;
    void WriteProperty(const QString &name, const QVariant &value, const QVariant &def) override;

    QJsonObject Object() const { return m_object; }
    void SetObject(const QJsonObject &object) { m_object = object; }

    // Reads a file; false (and an empty bag) when it is missing or not a
    // JSON object. errorText says why.
    bool Load(const QString &fileName, QString *errorText = nullptr);
    bool Save(const QString &fileName, QString *errorText = nullptr) const;

private:
    QJsonObject m_object;
};

// A group of a QSettings store.
class ZELCTRL_EXPORT zelSettingsPropertyBag : public zelPropertyBag
{
public:
    zelSettingsPropertyBag(QSettings &settings, const QString &group);
    QVariant ReadProperty(const QString &name, const QVariant &def) override;
    void WriteProperty(const QString &name, const QVariant &value, const QVariant &def) override;

private:
    QSettings &m_settings;
    QString m_group;
};
