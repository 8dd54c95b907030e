#include "lists/zelRecordSelection.h"

#include <QScopeGuard>

zelRecordSelection::zelRecordSelection(View &view, bool userClick)
    : m_view(view), m_userClick(userClick)
{}

bool zelRecordSelection::SelectItem(const QString &key)
{
    m_userClick = false;
    // Also when the widget throws: a host's later clicks must count as clicks.
    auto restore = qScopeGuard([this] { m_userClick = true; });
    const qint32 row = m_view.FindRow(key);
    if (row > 0) {
        m_view.SelectRow(row);
        return true;
    }
    m_selected.reset();
    QList<qint32> selected = m_view.SelectedRows();
    if (selected.isEmpty()) {
        m_view.RaiseChanged(false);
        return false;
    }
    // One by one, each unselection notifying; a widget that keeps a row
    // selected must not hold the host here for ever.
    while (!selected.isEmpty()) {
        m_view.UnselectRow(selected.first());
        const QList<qint32> left = m_view.SelectedRows();
        if (left.size() >= selected.size())
            break;
        selected = left;
    }
    return false;
}

void zelRecordSelection::SelectionChanged()
{
    if (m_clearing)
        return;
    const QList<qint32> selected = m_view.SelectedRows();
    if (selected.isEmpty()) {
        m_selected.reset();
        m_lastRow = 0;
        m_view.RaiseChanged(m_userClick);
        return;
    }
    const qint32 row = selected.first();
    if (row == m_lastRow && !m_userClick)
        return;
    m_selected = m_view.RecordOfRow(row);
    m_lastRow = row;
    m_view.RaiseChanged(m_userClick);
}

void zelRecordSelection::Clear(const std::function<void()> &removeRows)
{
    m_selected.reset();
    {
        m_clearing = true;
        auto done = qScopeGuard([this] { m_clearing = false; });
        if (removeRows)
            removeRows();
    }
    m_lastRow = 0;
}
