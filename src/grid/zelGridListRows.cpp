// The grid list's rows: adding, replacing, colouring, checking, removing
// and selecting them, and the selection events of the current row.

#include "core/zelConvert.h"
#include "core/zelTrail.h"
#include "grid/zelGridList.h"
#include "grid/zelGridList_p.h"
#include "grid/zelGridModel_p.h"
#include "grid/zelGridSelection_p.h"
#include "grid/zelGridView_p.h"

#include <QScopedValueRollback>

namespace {

// Changes one row object and shows it again; false for a row not there.
template <typename Change> bool changeRow(zelGridListPrivate &d, qint32 lRow, Change &&change)
{
    const auto row = d.items->ItemAt(lRow);
    if (!row)
        return false;
    change(*row);
    d.model->RowsChanged(lRow, lRow);
    return true;
}

} // namespace

std::shared_ptr<zelGridRow> zelGridList::AddItem(const QString &sRowText, const QString &sKey,
                                                 const QVariant &oTag, qint32 lRow)
{
    std::shared_ptr<zelGridRow> result;
    zel::Trail t(zelGridTrailName("AddItem"));
    t.Run([&] { result = AddItemEx(sRowText, sKey, oTag, lRow, false); });
    return result;
}

std::shared_ptr<zelGridRow> zelGridList::AddItemEx(const QString &sRowText, const QString &sKey,
                                                   const QVariant &oTag, qint32 lRow, bool bChecked)
{
    std::shared_ptr<zelGridRow> result;
    zel::Trail t(zelGridTrailName("AddItemEx"));
    const QScopedValueRollback<bool> busy(d->busy, true);
    t.Run([&] {
        d->selectedItems.reset();
        auto row = d->items->Create(sKey, sRowText, oTag);
        if (!row)
            return;
        const qint32 count = d->items->Count();
        if (lRow < 0 || lRow >= count) {
            lRow = count;
        } else {
            qint32 from = count;
            qint32 to = lRow;
            if (!d->items->Move(from, to))
                return; // the row could not go there and is not in the list
            // The rows from lRow on move down one, and the current row and
            // the selection with them.
            d->model->Sync();
            d->selection->Shift(lRow, +1);
        }
        d->model->RowsChanged(lRow, count);
        if (d->model->ViewRows() != count)
            d->model->ScheduleSync();
        result = row;
        if (d->checkBoxes)
            row->SetCheckedFlag(bChecked);
        if (d->model->HasColourColumns())
            SetColorCells(lRow);
        // Editable cells take their colour from the row as it is drawn: a
        // new row needs no extra step (SetBackColor).
        if (d->items->Count() == 1) {
            if (sKey.isEmpty())
                d->selection->Select(1);
            else
                SelectItem(sKey);
        }
        // A row changes nothing that the sizing reads: with everything it
        // reads as it was, it would only size and log the same again, a line
        // per row of a long list.
        if (SizingInput() != d->sized)
            SizeColZero();
        if (lRow <= CurrentRow() + 1)
            EnableControls();
    });
    return result;
}

std::shared_ptr<zelGridRow> zelGridList::SetItem(const QString &sRowText, const QString &sKey,
                                                 const QVariant &oTag, qint32 lRow)
{
    std::shared_ptr<zelGridRow> result;
    zel::Trail t(this, "SetItem");
    const QScopedValueRollback<bool> busy(d->busy, true);
    t.Run([&] {
        const qint32 r = (lRow >= 1 && lRow <= d->items->Count()) ? lRow : FindRow(sKey);
        if (r < 1)
            return;
        auto row = d->items->ItemAt(r);
        if (!row)
            return;
        row->SetData(sRowText);
        if (oTag.isValid())
            row->SetTag(oTag);
        result = row;
        SetColorCells(r);
        SetBackColor(r);
    });
    return result;
}

void zelGridList::SetColorCells(qint32 lRow)
{
    zel::Trail t(zelGridTrailName("SetColorCells"));
    t.Run([&] {
        const auto row = d->items->ItemAt(lRow);
        if (!row || !d->model->HasColourColumns())
            return;
        row->ClearCellColours();
        const auto &formats = d->model->Formats();
        for (int c = 0; c < int(formats.size()); ++c) {
            if (formats[size_t(c)].DataType != zelGridType::Colour)
                continue;
            t.Step = QStringLiteral("Column %1").arg(c);
            // Colours are 32-bit patterns: system colours read as negative.
            const quint32 colour = quint32(zel::CLng(row->Cell(c).toString()));
            row->SetCellColour(c, colour);
        }
        t.Step.clear();
    });
    d->model->RowsChanged(lRow, lRow);
}

void zelGridList::SetBackColor(qint32 lRow)
{
    zel::Trail t(this, "SetBackColor");
    // The pale yellow of editable cells is drawn from the columns and the
    // row as they are: showing the row again is all it takes.
    t.Run([&] { d->model->RowsChanged(lRow, lRow); });
}

bool zelGridList::SetItemColor(qint32 lRow, quint32 lColor)
{
    bool result = false;
    zel::Trail t(this, "SetItemColor");
    t.Run([&] {
        result = changeRow(*d, lRow, [&](zelGridRow &row) { row.SetRowColorValue(lColor); });
    });
    return result;
}

bool zelGridList::SetItemColorByKey(const QString &sKey, quint32 lColor)
{
    bool result = false;
    zel::Trail t(this, "SetItemColorByKey");
    t.Run([&] { result = SetItemColor(FindRow(sKey), lColor); });
    return result;
}

bool zelGridList::CheckItem(qint32 lRow, bool bChecked)
{
    bool result = false;
    zel::Trail t(this, "CheckItem");
    t.Run([&] {
        result = changeRow(*d, lRow, [&](zelGridRow &row) { row.SetCheckedFlag(bChecked); });
    });
    return result;
}

bool zelGridList::CheckItemByKey(const QString &sKey, bool bChecked)
{
    bool result = false;
    zel::Trail t(this, "CheckItemByKey");
    t.Run([&] { result = CheckItem(FindRow(sKey), bChecked); });
    return result;
}

QVariant zelGridList::Clear()
{
    QVariant result = false;
    zel::Trail t(this, "Clear");
    t.Run([&] {
        d->selectedItems.reset();
        d->items->Clear();
        d->model->ResetRows();
        EnableControls();
        result = true;
    });
    return result;
}

bool zelGridList::RemoveItem(qint32 lRow)
{
    bool result = false;
    zel::Trail t(zelGridTrailName("RemoveItem"));
    t.Run([&] {
        const qint32 count = d->items->Count();
        if (lRow < 1 || lRow > count)
            return;
        d->selectedItems.reset();
        d->vfgItems->CloseEditor();
        if (!d->items->Remove(lRow))
            return;
        // The rows below move up one; the last shows empty until the grid
        // hears of the new count.
        d->model->RowsChanged(lRow, count);
        d->model->ScheduleSync();
        d->selection->Shift(lRow, -1);
        EnableControls();
        result = true;
    });
    return result;
}

bool zelGridList::RemoveItemByKey(const QString &sKey)
{
    bool result = false;
    zel::Trail t(zelGridTrailName("RemoveItemByKey"));
    t.Run([&] { result = RemoveItem(FindRow(sKey)); });
    return result;
}

qint32 zelGridList::FindRow(const QString &sKey) const
{
    return d->items->IndexOfKey(sKey);
}

bool zelGridList::SelectItem(const QString &sKey)
{
    bool result = false;
    zel::Trail t(zelGridTrailName("SelectItem"));
    const QScopedValueRollback<bool> busy(d->busy, true);
    t.Run([&] {
        const qint32 r = FindRow(sKey);
        if (r < 1)
            return;
        d->selection->Select(r);
        result = true;
    });
    return result;
}

QVariant zelGridList::Refresh()
{
    QVariant result = false;
    zel::Trail t(this, "Refresh");
    t.Run([&] {
        d->model->Sync();
        d->model->RowsChanged(1, d->items->Count());
        d->vfgItems->viewport()->update();
        EnableControls();
        result = true;
    });
    return result;
}

qint32 zelGridList::CurrentRow() const
{
    return d->selection->CurrentRow();
}

qint32 zelGridList::CurrentColumn() const
{
    return d->selection->CurrentColumn();
}

const zelGridListLayout &zelGridList::GridLayout() const
{
    return d->layout;
}

// ---------------------------------------------------------------- grid events

void zelGridList::vfgItems_RowColChange()
{
    zel::Trail t(this, "vfgItems_RowColChange");
    const QScopedValueRollback<bool> busy(d->busy, true);
    t.Run([&] {
        const qint32 r = CurrentRow();
        if (r < 1 || r > d->items->Count())
            return;
        const auto row = d->items->ItemAt(r);
        emit SelectedItem(row ? row->Key() : QString(), r);
        emit SelectionChanged();
    });
}
