#pragma once

// One class of a classified legend: the interval Min..Max with the value,
// colour and label that the range editor shows for it. The first range of an
// editor is open downwards (IsMin) and the last upwards (IsMax); while a flag
// is set the bound reads as its sentinel, and the stored bound comes back
// when the flag is cleared. The editor gives each item an identity, from
// which Key follows, and keeps Index equal to its position.

#include "core/zelShared.h"

#include <QString>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelRangeItem : public zel::SharedObject<zelRangeItem>
{
    Q_OBJECT
    Q_PROPERTY(QString Key READ Key)
    Q_PROPERTY(qint32 Index READ Index WRITE SetIndex)
    Q_PROPERTY(double Min READ Min WRITE SetMin)
    Q_PROPERTY(double Max READ Max WRITE SetMax)
    Q_PROPERTY(QVariant Value READ Value WRITE SetValue)
    Q_PROPERTY(bool Interpolate READ Interpolate WRITE SetInterpolate)
    Q_PROPERTY(bool IncludeLowerBound READ IncludeLowerBound WRITE SetIncludeLowerBound)
    Q_PROPERTY(quint32 Color READ Color WRITE SetColor)
    Q_PROPERTY(QString Label READ Label WRITE SetLabel)
    Q_PROPERTY(bool IsMin READ IsMin WRITE SetIsMin)
    Q_PROPERTY(bool IsMax READ IsMax WRITE SetIsMax)

public:
    // What Min answers for an open lower end, and Max for an open upper end.
    // They differ on purpose (ten nines below, nine nines above): hosts
    // compare against these very numbers.
    static constexpr double OpenMin = -9999999999.0;
    static constexpr double OpenMax = 999999999.0;

    Q_INVOKABLE explicit zelRangeItem(QObject *parent = nullptr);
    ~zelRangeItem() override;

    // The identity in decimal and "K": "12K". "0K" on an item no editor holds.
    QString Key() const;
    qint32 Index() const { return m_index; }
    void SetIndex(qint32 v) { m_index = v; }
    // OpenMin while IsMin, else the stored lower bound (0 by default).
    double Min() const { return m_isMin ? OpenMin : m_min; }
    void SetMin(double v) { m_min = v; }
    // OpenMax while IsMax, else the stored upper bound (0 by default).
    double Max() const { return m_isMax ? OpenMax : m_max; }
    void SetMax(double v) { m_max = v; }
    // Any value; empty by default. zel::Missing() when Create was not given one.
    QVariant Value() const { return m_value; }
    void SetValue(const QVariant &v) { m_value = v; }
    bool Interpolate() const { return m_interpolate; }
    void SetInterpolate(bool v) { m_interpolate = v; }
    bool IncludeLowerBound() const { return m_includeLowerBound; }
    void SetIncludeLowerBound(bool v) { m_includeLowerBound = v; }
    // 0x00BBGGRR; 0 (black) by default.
    quint32 Color() const { return m_color; }
    void SetColor(quint32 v) { m_color = v; }
    QString Label() const { return m_label; }
    void SetLabel(const QString &v) { m_label = v; }
    bool IsMin() const { return m_isMin; }
    void SetIsMin(bool v) { m_isMin = v; }
    bool IsMax() const { return m_isMax; }
    void SetIsMax(bool v) { m_isMax = v; }

    // Copies every field of oItem through its getters, so a bound that reads
    // as a sentinel is stored as that sentinel; a missing Value becomes 0.
    void CopyFrom(const zelRangeItem &oItem);
    // The same for a late-bound caller; anything but a range item is logged
    // (error 424) and changes nothing.
    Q_INVOKABLE void CopyFrom(QObject *oItem);
    // A new item with this item's fields and Key.
    Q_INVOKABLE std::shared_ptr<zelRangeItem> Clone() const;

private:
    friend struct zelLegendAccess;

    qint32 m_identity = 0;
    qint32 m_index = 0;
    double m_min = 0.0;
    double m_max = 0.0;
    QVariant m_value;
    bool m_interpolate = false;
    bool m_includeLowerBound = false;
    quint32 m_color = 0;
    QString m_label;
    bool m_isMin = false;
    bool m_isMax = false;
};
