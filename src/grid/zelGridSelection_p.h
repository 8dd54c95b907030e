#pragma once

// The grid list's selection bookkeeping: the current row and the selected
// rows follow their rows when rows come and go, each row object knows
// whether it is selected, and each change that the user makes (of the
// current cell, of the selection) is raised once the user's action is done.

#include <QObject>

#include <memory>

struct zelGridListPrivate;
class zelGridRows;
class QItemSelection;

class zelGridSelection : public QObject
{
    Q_OBJECT

public:
    zelGridSelection(zelGridListPrivate &d, QObject *parent);

    // Starts following the view's selection model.
    void Watch();

    // The current grid row (0 when there is none) and column.
    qint32 CurrentRow() const;
    qint32 CurrentColumn() const;
    // Makes data row lRow current and selects it (adding it to a multiple
    // selection).
    void Select(qint32 lRow);
    // Row lRow was inserted (delta 1) or removed (delta -1): the current row
    // and the selected rows below it move with their rows.
    void Shift(qint32 lRow, int delta);
    // A new collection of the rows selected now, in grid order.
    std::shared_ptr<zelGridRows> SelectedRows() const;

    // A change to raise; raised at once by Flush, or when control returns.
    void Note();
    void Flush();

signals:
    // One change of the current cell or of the selection, to be raised.
    void Changed();
    void CurrentRowChanged();

private:
    void markRows(const QItemSelection &selected, const QItemSelection &deselected);

    zelGridListPrivate &d;
    int m_pending = 0;
    bool m_queued = false;
};
