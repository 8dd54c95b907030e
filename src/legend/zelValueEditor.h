#pragma once

// Edits a unique-value legend: source values (text), each with the value,
// colour and label the legend gives it, one grid row per entry, found by
// their source text ignoring letter case. Below the entries the grid offers a
// "<new>" row: typing a source value there adds an entry. cmdInsert starts
// that typing; cmdRemove removes the current entry. Entries are placed in the
// order they are created.

#include "core/zelKeyedCollection.h"
#include "core/zelMissing.h"
#include "grid/zelGridEnumerator.h"
#include "legend/zelLegendEditor.h"
#include "legend/zelValueItem.h"

#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

class ZELCTRL_EXPORT zelValueEditor : public zelLegendEditor
{
    Q_OBJECT
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(qint32 Count READ Count)

public:
    explicit zelValueEditor(QWidget *parent = nullptr);
    ~zelValueEditor() override;

    // Enables the whole control; by default true.
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)

    qint32 Count() const { return m_items.Count(); }
    // The first entry whose Source equals sSource ignoring letter case;
    // nothing when there is none.
    Q_INVOKABLE std::shared_ptr<zelValueItem> ItemBySource(const QString &sSource) const;
    // The entry at a 1-based position or with a key; nothing when none matches.
    Q_INVOKABLE std::shared_ptr<zelValueItem> Item(const QVariant &vKey) const;
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;
    // Removes every entry and rebuilds the grid's columns.
    Q_INVOKABLE void Clear();
    // Adds an entry after the last one and answers it.
    Q_INVOKABLE std::shared_ptr<zelValueItem> Create(const QString &sSource,
                                                     const QVariant &vValue = zel::Missing(),
                                                     quint32 lColor = 0,
                                                     const QString &sLabel = QString());
    // Rewrites the grid row of the entry with this key.
    Q_INVOKABLE void RefreshItem(const QString &sKey);

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

protected:
    // The entries and the "<new>" row.
    int GridRows() const override { return m_items.Count() + 1; }
    QString ItemText(int row, Column c) const override;
    std::optional<quint32> ItemColour(int row) const override;
    bool ItemEditable(int row, Column c) const override;
    bool AfterCellEdit(int row, Column c, const QString &text) override;
    void SetItemColour(int row, quint32 colour) override;
    void Insert() override;
    void Remove() override;
    std::any SaveItems() const override;
    void RestoreItems(const std::any &state) override;

private:
    bool SourceTaken(const QString &source, const zelValueItem *besides) const;

    zel::zelKeyedCollection<zelValueItem> m_items;
    qint32 m_nextIdentity = 0;
    bool m_enabled = true;
};
