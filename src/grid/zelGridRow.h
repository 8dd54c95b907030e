#pragma once

// One row of a grid list: the cell texts (joined by tabs, in column order),
// the key, the host's tag, the selection and check marks and the row's
// colour. The grid list's model reads its cells straight from here.

#include "core/zelShared.h"

#include <QObject>
#include <QString>
#include <QStringView>
#include <QVariant>

#include <memory>
#include <vector>

class ZELCTRL_EXPORT zelGridRow : public zel::SharedObject<zelGridRow>
{
    Q_OBJECT
    Q_PROPERTY(QString Data READ Data WRITE SetData)
    Q_PROPERTY(QString Key READ Key WRITE SetKey)
    Q_PROPERTY(QVariant Tag READ Tag WRITE SetTag)
    Q_PROPERTY(QVariant Selected READ Selected WRITE SetSelected)
    Q_PROPERTY(QVariant Checked READ Checked WRITE SetChecked)
    Q_PROPERTY(QVariant RowColor READ RowColor WRITE SetRowColor)

public:
    Q_INVOKABLE explicit zelGridRow(QObject *parent = nullptr);
    ~zelGridRow() override;

    // The cell texts separated by tabs. Empty by default.
    QString Data() const { return m_data; }
    void SetData(const QString &v);
    // The key in zelGridRows; empty (the default) = no key.
    QString Key() const { return m_key; }
    void SetKey(const QString &v) { m_key = v; }
    // The host's own object, released with the row.
    QVariant Tag() const { return m_tag; }
    void SetTag(const QVariant &v) { m_tag = v; }
    bool Selected() const { return m_selected; }
    void SetSelected(const QVariant &v);
    bool Checked() const { return m_checked; }
    void SetChecked(const QVariant &v);
    // 0x00BBGGRR or a system colour; by default the window background
    // 0x80000005.
    quint32 RowColor() const { return m_rowColor; }
    void SetRowColor(const QVariant &v);

    // Direct access for the grid list (no conversion, no trail).
    void SetSelectedFlag(bool b) { m_selected = b; }
    void SetCheckedFlag(bool b) { m_checked = b; }
    void SetRowColorValue(quint32 c) { m_rowColor = c; }

    // The text of cell `column` (0-based) of Data; empty past the last tab.
    QStringView Cell(int column) const;
    // Data with cell `column` replaced (cells are added as needed).
    void SetCell(int column, const QString &text);

    // Colours that a colour column took from its cell's text; such a cell
    // shows only its colour. Cleared whenever Data is set.
    bool CellColour(int column, quint32 *colour) const;
    void SetCellColour(int column, quint32 colour);
    void ClearCellColours() { m_cellColours.reset(); }

private:
    QString m_data;
    QString m_key;
    QVariant m_tag;
    quint32 m_rowColor = 0x80000005;
    bool m_selected = false;
    bool m_checked = false;
    // Few rows of few grids have colour cells: kept apart, made on demand.
    std::unique_ptr<std::vector<std::pair<int, quint32>>> m_cellColours;
};
