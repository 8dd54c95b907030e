#pragma once

// The grid list's table model: it reads the row objects of Items directly,
// so that each row is held once.

#include "grid/zelGridEnums.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

struct zelGridListPrivate;

// What a grid column took from its column object when the columns were
// built (RefreshColumns): later changes to the object show after the next
// rebuild, as on any grid.
struct zelGridColumnFormat
{
    QString Caption;
    qint32 DataType = 8;
    qint32 Decimals = 0;
    ZEL_Controls_ColumnAlign Alignment = ZEL_Controls_ColumnAlign(0);
    QStringList Combo;          // drop-down entries; empty = text editor
    bool ComboEditable = false; // a list that starts with "|" also takes free text
};

class zelGridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    zelGridModel(const zelGridListPrivate &d, QObject *parent);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    // New columns, and every row of Items anew.
    void ResetColumns(std::vector<zelGridColumnFormat> formats);
    // Every row of Items anew, the columns kept.
    void ResetRows();
    // Rows first to last (1-based) show something new.
    void RowsChanged(int first, int last);

    // The rows the views know. A view's row bookkeeping costs time in
    // proportion to all its rows for every row inserted or removed, so the
    // views hear of a changed row count once per turn of the event loop:
    // until then rows past the end of Items show empty, and rows added past
    // the views' end are not shown yet. Rows that move up or down within the
    // grid are told as changed rows.
    int ViewRows() const { return m_rows; }
    // Tells the views the row count of Items now, in one step.
    void Sync();
    // Sync at the next turn of the event loop, before anything is painted.
    void ScheduleSync();

    const std::vector<zelGridColumnFormat> &Formats() const { return m_formats; }
    qint32 DataType(int column) const;
    bool IsBoolean(int column) const { return DataType(column) == zelGridType::Boolean; }
    bool IsColour(int column) const { return DataType(column) == zelGridType::Colour; }
    bool HasColourColumns() const { return m_hasColour; }
    // Whether the column object behind grid column `column` allows editing.
    bool AllowEdit(int column) const;
    // The check-box column of a list with CheckBoxes: its state is the
    // row's Checked.
    bool IsCheckColumn(int column) const;
    static bool TextIsTrue(QStringView text);

signals:
    // An editor handed over the text of cell lRow (1-based), lColumn.
    void CellEdited(qint32 lRow, qint32 lColumn, const QString &sText);

private:
    const zelGridListPrivate &d;
    std::vector<zelGridColumnFormat> m_formats;
    int m_rows = 0;
    bool m_hasColour = false;
    bool m_syncQueued = false;
};
