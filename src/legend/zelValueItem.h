#pragma once

// One entry of a unique-value legend: a source value (text) with the value,
// colour and label that the legend gives it. The value editor sets Source and
// the identity from which Key follows.

#include "core/zelShared.h"

#include <QString>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelValueItem : public zel::SharedObject<zelValueItem>
{
    Q_OBJECT
    Q_PROPERTY(QString Key READ Key)
    Q_PROPERTY(QString Source READ Source)
    Q_PROPERTY(QVariant Value READ Value WRITE SetValue)
    Q_PROPERTY(quint32 Color READ Color WRITE SetColor)
    Q_PROPERTY(QString Label READ Label WRITE SetLabel)
    Q_PROPERTY(bool IsNew READ IsNew)

public:
    Q_INVOKABLE explicit zelValueItem(QObject *parent = nullptr);
    ~zelValueItem() override;

    // The identity in decimal and "K"; "0K" on an entry no editor holds.
    QString Key() const;
    QString Source() const { return m_source; }
    QVariant Value() const { return m_value; }
    void SetValue(const QVariant &v) { m_value = v; }
    // 0x00BBGGRR; 0 by default.
    quint32 Color() const { return m_color; }
    void SetColor(quint32 v) { m_color = v; }
    QString Label() const { return m_label; }
    void SetLabel(const QString &v) { m_label = v; }
    // The placeholder entry for typing a new source: Source is "<new>" in any
    // letter case.
    bool IsNew() const;

    // Copies identity, Source, Color, Label and Value; a missing Value is
    // copied as an empty one.
    void CopyFrom(const zelValueItem &oItem);
    // The same for a late-bound caller; anything but a value item is logged
    // (error 424) and changes nothing.
    Q_INVOKABLE void CopyFrom(QObject *oItem);
    // A new entry with this entry's fields and Key.
    Q_INVOKABLE std::shared_ptr<zelValueItem> Clone() const;

private:
    friend struct zelLegendAccess;

    qint32 m_identity = 0;
    QString m_source;
    QVariant m_value;
    quint32 m_color = 0;
    QString m_label;
};
