#pragma once

// The selection rules that the combo, the combo tree and the tree list share.
// Their widgets differ (a combo box's current row, a tree view's selection),
// so each control answers the few questions of View and forwards its widget's
// selection notification to SelectionChanged(); everything a host sees (the
// selected record, the Changed events and their bUserClick) follows from here
// and is the same in all three.

#include "zelCtrlExport.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

class zelComboRecord;

class ZELCTRL_EXPORT zelRecordSelection
{
public:
    class View
    {
    public:
        virtual ~View() = default;
        // The row showing the record with this key (keys compared exactly);
        // 0 when there is none.
        virtual qint32 FindRow(const QString &key) const = 0;
        // The selected rows, the first one first.
        virtual QList<qint32> SelectedRows() const = 0;
        // Brings the row into view and selects it; the widget's notification
        // reaches SelectionChanged().
        virtual void SelectRow(qint32 row) = 0;
        virtual void UnselectRow(qint32 row) = 0;
        // The record a row shows.
        virtual std::shared_ptr<zelComboRecord> RecordOfRow(qint32 row) const = 0;
        virtual void RaiseChanged(bool bUserClick) = 0;
    };

    // userClick: the flag before the first AddItem or SelectItem completes.
    zelRecordSelection(View &view, bool userClick);

    // Selects the row showing key. A known key raises Changed(false) through
    // the widget's notification, unless that row was selected already; an
    // unknown key leaves nothing selected and raises Changed(false) once for
    // each row it unselects, or once at once when none was selected.
    bool SelectItem(const QString &key);
    // The widget's selection changed (by the user, or by SelectItem).
    void SelectionChanged();
    // Runs removeRows (the widget's rows going) with the widget's
    // notifications ignored: nothing is selected after it, and no event is
    // raised.
    void Clear(const std::function<void()> &removeRows);
    // An AddItem finished, whatever its outcome: user clicks count again.
    void ItemAdded() { m_userClick = true; }

    std::shared_ptr<zelComboRecord> SelectedRecord() const { return m_selected; }
    qint32 LastRow() const { return m_lastRow; }
    bool UserClick() const { return m_userClick; }

private:
    View &m_view;
    std::shared_ptr<zelComboRecord> m_selected;
    qint32 m_lastRow = 0;
    bool m_userClick;
    bool m_clearing = false;
};
