#include "grid/zelGridView_p.h"

#include "grid/zelGridModel_p.h"

#include <QKeyEvent>
#include <QMouseEvent>

zelGridView::zelGridView(zelGridModel *model, QWidget *parent) : QTableView(parent), m_model(model)
{}

void zelGridView::CloseEditor()
{
    // An editor handing over its text closes by itself once that is done.
    if (state() == EditingState && m_editIndex.isValid() && !m_committing)
        closePersistentEditor(m_editIndex);
    m_editIndex = QPersistentModelIndex();
}

void zelGridView::EditCurrent()
{
    const QModelIndex current = currentIndex();
    if (current.isValid() && state() != EditingState)
        edit(current, AllEditTriggers, nullptr);
}

bool zelGridView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    if (!index.isValid() || index.model() != m_model)
        return QTableView::edit(index, trigger, event);
    const int column = index.column();
    const int row = index.row() + 1;

    if (m_model->IsBoolean(column)) {
        // A check box changes with a click on its cell or the space bar.
        bool toggle = false;
        if (event && event->type() == QEvent::MouseButtonRelease) {
            const auto *me = static_cast<const QMouseEvent *>(event);
            toggle = me->button() == Qt::LeftButton &&
                     visualRect(index).contains(me->position().toPoint());
        } else if (event && event->type() == QEvent::KeyPress) {
            toggle = static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Space;
        }
        if (!toggle)
            return false;
        emit CheckToggling(row, column);
        return true;
    }

    if (state() == EditingState)
        return QTableView::edit(index, trigger, event);
    const bool starts = trigger == AllEditTriggers || (editTriggers() & trigger);
    if (!starts)
        return QTableView::edit(index, trigger, event);
    if (m_model->IsColour(column)) {
        emit ColourChoosing(row, column);
        return true;
    }
    bool allow = false;
    emit EditStarting(row, column, allow);
    if (!allow)
        return false;
    const bool opened = QTableView::edit(index, trigger, event);
    if (opened)
        m_editIndex = index;
    else
        emit EditEnded();
    return opened;
}

void zelGridView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    QTableView::closeEditor(editor, hint);
    m_editIndex = QPersistentModelIndex();
    emit EditEnded();
}

void zelGridView::commitData(QWidget *editor)
{
    // The host hears of the new text meanwhile and may remove the row: the
    // editor then closes by itself once it is done.
    m_committing = true;
    QTableView::commitData(editor);
    m_committing = false;
}

void zelGridView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex current = currentIndex();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        state() != EditingState && current.isValid() && !m_model->IsBoolean(current.column())) {
        // Enter starts editing the current cell, as F2 does.
        if (edit(current, EditKeyPressed, event)) {
            event->accept();
            return;
        }
    }
    QTableView::keyPressEvent(event);
}

void zelGridView::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    viewport()->update();
    try {
        emit FocusEntered();
    } catch (...) {
        // Raised for the host; a focus change has no host to take it.
    }
}

void zelGridView::focusOutEvent(QFocusEvent *event)
{
    QTableView::focusOutEvent(event);
    viewport()->update();
}

void zelGridView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
    emit GridDoubleClicked();
}

void zelGridView::afterInput(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        emit InputHandled();
        break;
    default:
        break;
    }
}

bool zelGridView::event(QEvent *event)
{
    const bool result = QTableView::event(event);
    afterInput(event);
    return result;
}

bool zelGridView::viewportEvent(QEvent *event)
{
    const bool result = QTableView::viewportEvent(event);
    afterInput(event);
    return result;
}
