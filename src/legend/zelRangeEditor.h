#pragma once

// Edits a classified legend: contiguous numeric ranges, each with its upper
// bound, a value, a colour and a label, one grid row per range. The first
// range is open towards minus infinity and the last towards plus infinity.
//
// Create splits the range that holds the new bound, so the upper bound of
// each range is always the lower bound of the next. The user edits upper
// bounds, values and labels in the grid (refused bounds are explained in a
// message box and leave the range as it was), picks colours with a
// double-click on the style cell, inserts and removes ranges with cmdInsert
// and cmdRemove and sets the interpolation and lower-bound switches with
// chkInterpolate and chkIncludeLowerBound. Every such change raises Changed.

#include "core/zelMissing.h"
#include "grid/zelGridEnumerator.h"
#include "legend/zelLegendEditor.h"
#include "legend/zelRangeItem.h"

#include "core/zelKeyedCollection.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

class QCheckBox;

class ZELCTRL_EXPORT zelRangeEditor : public zelLegendEditor
{
    Q_OBJECT
    Q_PROPERTY(QString SrcFormat READ SrcFormat WRITE SetSrcFormat)
    Q_PROPERTY(QVariant Interpolate READ Interpolate WRITE SetInterpolate)
    Q_PROPERTY(QVariant IncludeLowerBound READ IncludeLowerBound WRITE SetIncludeLowerBound)
    Q_PROPERTY(QVariant CouldNew READ CouldNew WRITE SetCouldNew)
    Q_PROPERTY(std::shared_ptr<zelRangeItem> MinRange READ MinRange)
    Q_PROPERTY(std::shared_ptr<zelRangeItem> MaxRange READ MaxRange)
    Q_PROPERTY(qint32 Count READ Count)

public:
    explicit zelRangeEditor(QWidget *parent = nullptr);
    ~zelRangeEditor() override;

    // Number format of the bound columns; by default "0.00".
    QString SrcFormat() const { return m_srcFormat; }
    void SetSrcFormat(const QString &v);
    // The state shown by chkInterpolate; by default true. Setting it changes
    // no range: only a click of the box does.
    bool Interpolate() const { return m_interpolate; }
    void SetInterpolate(bool v);
    ZEL_LATE_BOUND(Interpolate)
    // The state shown by chkIncludeLowerBound; by default true (a range
    // holds min <= source < max).
    bool IncludeLowerBound() const { return m_includeLowerBound; }
    void SetIncludeLowerBound(bool v);
    ZEL_LATE_BOUND(IncludeLowerBound)
    // Whether the user may insert ranges with cmdInsert; by default true.
    bool CouldNew() const { return m_couldNew; }
    void SetCouldNew(bool v);
    ZEL_LATE_BOUND(CouldNew)

    // The range at a 1-based position or with a key ("12K"); nothing when
    // none matches.
    Q_INVOKABLE std::shared_ptr<zelRangeItem> Item(const QVariant &vKey) const;
    // Walks the ranges in order.
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;
    // The ranges in order, for C++ hosts.
    std::vector<std::shared_ptr<zelRangeItem>> Items() const;
    qint32 Count() const { return m_items.Count(); }
    // The first and the last range; nothing on an empty editor.
    std::shared_ptr<zelRangeItem> MinRange() const;
    std::shared_ptr<zelRangeItem> MaxRange() const;

    // Removes every range and rebuilds the grid's columns.
    Q_INVOKABLE void Clear();
    // Adds a range whose upper bound is dMax. On an empty editor it is the
    // one range, open at both ends. Otherwise the range that holds dMax (the
    // first whose Max is at least dMax, or the open last one) is split
    // there: it keeps its lower bound, ends at dMax and takes vValue, lColor
    // and sLabel; a new range from dMax to its old upper bound carries its
    // former value, colour and label and follows it. Answers the range that
    // ends at dMax; nothing (with a logged error) for a dMax that is not a
    // finite number or that lies above a last range the user closed.
    Q_INVOKABLE std::shared_ptr<zelRangeItem> Create(double dMax,
                                                     const QVariant &vValue = zel::Missing(),
                                                     bool bInterpolate = false, quint32 lColor = 0,
                                                     const QString &sLabel = QString());
    // Rewrites the grid row of the range with this key.
    Q_INVOKABLE void RefreshItem(const QString &sKey);

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

    using zelLegendEditor::Refresh;

    QCheckBox *InterpolateBox() const { return m_chkInterpolate; }
    QCheckBox *IncludeLowerBoundBox() const { return m_chkIncludeLowerBound; }

protected:
    int GridRows() const override { return m_items.Count(); }
    QString ItemText(int row, Column c) const override;
    std::optional<quint32> ItemColour(int row) const override;
    bool ItemEditable(int row, Column c) const override;
    bool AfterCellEdit(int row, Column c, const QString &text) override;
    void SetItemColour(int row, quint32 colour) override;
    void Insert() override;
    void Remove() override;
    std::any SaveItems() const override;
    void RestoreItems(const std::any &state) override;
    void Refresh(quint32 what) override;

private:
    enum RefreshParts : quint32
    {
        RefreshCells = 0x01,
        RefreshButtons = 0x02,
    };

    std::shared_ptr<zelRangeItem> Split(double dMax, const QVariant &vValue, bool bInterpolate,
                                        quint32 lColor, const QString &sLabel);
    qint32 FindSplit(double dMax) const;
    void RefreshIndices(qint32 from);
    void RefreshRow(qint32 pos);
    void Recaption();
    void EnableButtons();
    QString Bound(double d) const;
    void chkInterpolate_Click();
    void chkIncludeLowerBound_Click();

    zel::zelKeyedCollection<zelRangeItem> m_items;
    qint32 m_nextIdentity = 0;
    QString m_srcFormat = QStringLiteral("0.00");
    bool m_interpolate = true;
    bool m_includeLowerBound = true;
    bool m_couldNew = true;
    QCheckBox *m_chkInterpolate = nullptr;
    QCheckBox *m_chkIncludeLowerBound = nullptr;
};
