#include "grid/zelGridSelection_p.h"

#include "core/zelTrail.h"
#include "grid/zelGridList_p.h"
#include "grid/zelGridModel_p.h"
#include "grid/zelGridView_p.h"

#include <QItemSelectionModel>
#include <QScopedValueRollback>

#include <algorithm>

zelGridSelection::zelGridSelection(zelGridListPrivate &d, QObject *parent) : QObject(parent), d(d)
{}

void zelGridSelection::Watch()
{
    QItemSelectionModel *sm = d.vfgItems->selectionModel();
    connect(sm, &QItemSelectionModel::currentRowChanged, this,
            [this] { emit CurrentRowChanged(); });
    // A new current cell, even in the same row, is a row-and-column change.
    connect(sm, &QItemSelectionModel::currentChanged, this, [this] {
        if (!d.busy)
            Note();
    });
    connect(sm, &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &selected, const QItemSelection &deselected) {
                markRows(selected, deselected);
                if (!d.busy)
                    Note();
            });
}

qint32 zelGridSelection::CurrentRow() const
{
    const QModelIndex i = d.vfgItems->currentIndex();
    return i.isValid() ? i.row() + 1 : 0;
}

qint32 zelGridSelection::CurrentColumn() const
{
    const QModelIndex i = d.vfgItems->currentIndex();
    return i.isValid() ? i.column() : 0;
}

void zelGridSelection::markRows(const QItemSelection &selected, const QItemSelection &deselected)
{
    zel::Trail t(QStringLiteral("zelGridList.vfgItems_AfterSelChange"));
    t.Run([&] {
        auto mark = [this](const QItemSelection &ranges, bool on) {
            for (const QItemSelectionRange &r : ranges)
                for (int i = r.top(); i <= r.bottom(); ++i)
                    if (const auto row = d.items->ItemAt(i + 1))
                        row->SetSelectedFlag(on);
        };
        mark(deselected, false);
        mark(selected, true);
    });
}

std::shared_ptr<zelGridRows> zelGridSelection::SelectedRows() const
{
    auto result = std::make_shared<zelGridRows>();
    QModelIndexList rows = d.vfgItems->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end(),
              [](const QModelIndex &a, const QModelIndex &b) { return a.row() < b.row(); });
    for (const QModelIndex &i : std::as_const(rows))
        if (auto row = d.items->ItemAt(i.row() + 1))
            result->Add(row);
    return result;
}

void zelGridSelection::Select(qint32 lRow)
{
    if (lRow < 1 || lRow > d.items->Count() || d.model->columnCount() == 0)
        return;
    d.model->Sync();
    const int column = std::max(0, d.vfgItems->currentIndex().column());
    const QModelIndex index = d.model->index(lRow - 1, column);
    const auto command =
        (d.multiSelect ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect) |
        QItemSelectionModel::Rows;
    d.vfgItems->selectionModel()->setCurrentIndex(index, command);
    d.vfgItems->scrollTo(index);
}

void zelGridSelection::Shift(qint32 lRow, int delta)
{
    QItemSelectionModel *sm = d.vfgItems->selectionModel();
    const int r0 = lRow - 1;
    const int count = d.items->Count();
    QItemSelection moved;
    bool selectionMoves = false;
    auto part = [&](int top, int bottom, const QItemSelectionRange &like) {
        if (top <= bottom)
            moved.append(QItemSelectionRange(d.model->index(top, like.left()),
                                             d.model->index(bottom, like.right())));
    };
    for (const QItemSelectionRange &range : sm->selection()) {
        if (range.bottom() < r0) {
            moved.append(range);
            continue;
        }
        selectionMoves = true;
        part(range.top(), std::min(range.bottom(), r0 - 1), range);
        if (delta > 0)
            part(std::max(range.top(), r0) + 1, range.bottom() + 1, range);
        else
            part(std::max(range.top(), r0 + 1) - 1, range.bottom() - 1, range);
    }
    const QModelIndex current = sm->currentIndex();
    int newCurrent = current.row();
    bool currentGone = false;
    if (current.isValid()) {
        if (delta > 0 && current.row() >= r0) {
            newCurrent = current.row() + 1;
        } else if (delta < 0 && current.row() > r0) {
            newCurrent = current.row() - 1;
        } else if (delta < 0 && current.row() == r0) {
            newCurrent = std::min(r0, count - 1);
            currentGone = true;
        }
    }
    if (!selectionMoves && newCurrent == current.row() && !currentGone)
        return;
    {
        const QScopedValueRollback<bool> busy(d.busy, true);
        const bool autoScroll = d.vfgItems->hasAutoScroll();
        d.vfgItems->setAutoScroll(false);
        if (selectionMoves)
            sm->select(moved, QItemSelectionModel::ClearAndSelect);
        if (newCurrent < 0) {
            sm->clearCurrentIndex();
        } else if (newCurrent != current.row() || currentGone) {
            // A removed current row hands over to the row now in its place,
            // which a single selection then selects.
            const auto command =
                currentGone && !d.multiSelect
                    ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                    : QItemSelectionModel::NoUpdate;
            sm->setCurrentIndex(d.model->index(newCurrent, current.column()), command);
        }
        d.vfgItems->setAutoScroll(autoScroll);
    }
    if (currentGone && newCurrent >= 0)
        Note();
}

void zelGridSelection::Note()
{
    ++m_pending;
    if (m_queued)
        return;
    m_queued = true;
    // A change that no user input of the grid brought (a host moving the
    // view's current index itself) is raised once control returns.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_queued = false;
            Flush();
        },
        Qt::QueuedConnection);
}

void zelGridSelection::Flush()
{
    while (m_pending > 0 && !d.busy) {
        --m_pending;
        emit Changed();
    }
}
