#pragma once

// The grid list's parts behind its public surface: the table model that
// reads the row objects directly (each row is held once, in Items), the
// table view "vfgItems" with the grid's editing keys and its edit veto,
// and the delegate that draws check boxes and the selection and makes the
// cell editors.

#include "grid/zelGridList.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <QStyledItemDelegate>
#include <QTableView>

#include <vector>

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
    explicit zelGridModel(zelGridList *owner);

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

private:
    zelGridList *m_owner;
    std::vector<zelGridColumnFormat> m_formats;
    int m_rows = 0;
    bool m_hasColour = false;
    bool m_syncQueued = false;
};

class zelGridView : public QTableView
{
    Q_OBJECT

public:
    zelGridView(zelGridList *owner, zelGridModel *model);

    // Starts editing the current cell, unless an editor is open already.
    void EditCurrent();
    // Closes an open editor without taking its text.
    void CloseEditor();

protected:
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void afterInput(const QEvent *event);

    zelGridList *m_owner;
    zelGridModel *m_model;
    QPersistentModelIndex m_editIndex;
};

class zelGridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    zelGridDelegate(zelGridList *owner, zelGridModel *model, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    zelGridList *m_owner;
    zelGridModel *m_model;
};
