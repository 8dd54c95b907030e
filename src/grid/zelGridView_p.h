#pragma once

// The grid list's table view "vfgItems": the grid's editing keys and its
// edit protocol. It asks and tells the list through its signals.

#include <QPersistentModelIndex>
#include <QTableView>

class zelGridModel;

class zelGridView : public QTableView
{
    Q_OBJECT

public:
    explicit zelGridView(zelGridModel *model, QWidget *parent);

    // Starts editing the current cell, unless an editor is open already.
    void EditCurrent();
    // Closes an open editor without taking its text.
    void CloseEditor();

signals:
    // An edit of cell lRow (1-based), lColumn is about to start; clear
    // bAllow to refuse it.
    void EditStarting(qint32 lRow, qint32 lColumn, bool &bAllow);
    // The user asks to tick or clear a check-box cell, or to choose the
    // colour of a colour cell.
    void CheckToggling(qint32 lRow, qint32 lColumn);
    void ColourChoosing(qint32 lRow, qint32 lColumn);
    // The editor closed, or did not open.
    void EditEnded();
    void GridDoubleClicked();
    void FocusEntered();
    // A key or mouse input has been handled.
    void InputHandled();

protected:
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    void commitData(QWidget *editor) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void afterInput(const QEvent *event);

    zelGridModel *m_model;
    QPersistentModelIndex m_editIndex;
    bool m_committing = false; // an editor is handing over its text
};
