#pragma once

// Classes a host's numbers for a legend and fills a range editor with the
// classes: one range per class, coloured along a ramp between two colours,
// labelled with the values it holds.
//
// Bad input never costs the host its legend: values that are not finite
// numbers (NaN, infinities, texts) are left out with a logged note, and
// fewer distinct values than classes give one class per distinct value,
// also noted in the log. No value at all is a logged error that leaves the
// editor as it was. A class count outside 1 to 256 is refused by its setter.
// The notes and errors go to the error trail under "zelClassifier.Classify"
// or "zelClassifier.Fill".

#include "core/zelProperties.h"
#include "legend/zelBreaks.h"
#include "zelCtrlExport.h"

#include <QObject>
#include <QVariant>

#include <span>
#include <vector>

class zelRangeEditor;

class ZELCTRL_EXPORT zelClassifier : public QObject, public zelPropertyHost
{
    Q_OBJECT
    Q_PROPERTY(QVariant Method READ Method WRITE SetMethod)
    Q_PROPERTY(QVariant ClassCount READ ClassCount WRITE SetClassCount)
    Q_PROPERTY(QVariant StartColor READ StartColor WRITE SetStartColor)
    Q_PROPERTY(QVariant EndColor READ EndColor WRITE SetEndColor)

public:
    Q_INVOKABLE explicit zelClassifier(QObject *parent = nullptr);
    ~zelClassifier() override;

    // A ZEL_ClassifyMethods; by default ZEL_Classify_NaturalBreaks.
    qint32 Method() const { return m_method; }
    void SetMethod(qint32 v);
    ZEL_LATE_BOUND(Method)
    // The classes asked for, 1 to zelMaxClasses; by default 5.
    qint32 ClassCount() const { return m_classes; }
    void SetClassCount(qint32 v);
    ZEL_LATE_BOUND(ClassCount)
    // The colours of the first and of the last class (0x00BBGGRR or a system
    // colour); by default a light yellow and a dark red.
    quint32 StartColor() const { return m_start; }
    void SetStartColor(quint32 v);
    ZEL_LATE_BOUND(StartColor)
    quint32 EndColor() const { return m_end; }
    void SetEndColor(quint32 v);
    ZEL_LATE_BOUND(EndColor)

    // The inner breaks of values (see zelBreaks.h); empty, with the failure
    // logged, when no break can be made.
    std::vector<double> Classify(std::span<const double> values);
    // The same for a late-bound caller: a list (or one value) of numbers.
    Q_INVOKABLE QVariantList Classify(const QVariant &vValues);

    // Replaces the ranges of editor by the classes of values: ranges in
    // ascending order, the Value of each its class number from 1, its
    // colour from the ramp and a label "<least> - <greatest>" of the values
    // it holds in the editor's SrcFormat. Breaks follow the editor's
    // IncludeLowerBound, so that each range holds exactly its class. False,
    // with the editor left as it was, when there was nothing to class.
    bool Fill(zelRangeEditor &editor, std::span<const double> values);
    Q_INVOKABLE bool Fill(QObject *oEditor, const QVariant &vValues);

    // The colours of n classes along the ramp.
    std::vector<quint32> Colors(int n) const;

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

signals:
    // A property was changed; a host that shows the classes fills again.
    void PropertyChanged(const QString &name);

protected:
    const QObject *PropertyOwner() const override { return this; }
    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }

private:
    // The breaks of values, with the notes on what was left out logged under t.
    std::vector<double> breaksOf(const zel::zelBreakValues &v, const zel::Trail &t) const;

    qint32 m_method = ZEL_Classify_NaturalBreaks;
    qint32 m_classes = 5;
    quint32 m_start = 0x00CCFFFF;
    quint32 m_end = 0x002600BD;
};
