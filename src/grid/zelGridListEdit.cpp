// The grid list's side of in-place editing: the veto of an edit, the
// text an edit leaves, check boxes, colour cells, and editing on focus.

#include "core/zelTrail.h"
#include "grid/zelGridList.h"
#include "grid/zelGridList_p.h"
#include "grid/zelGridModel_p.h"
#include "grid/zelGridView_p.h"
#include "platform/zelPlatform.h"

#include <QScopedValueRollback>

bool zelGridList::vfgItems_BeforeEdit(qint32 lRow, qint32 lColumn)
{
    bool bCancel = true;
    zel::Trail t(this, "vfgItems_BeforeEdit");
    t.Run([&] {
        d->editing = false;
        const auto col = d->columns->Item(lColumn + 1);
        if (!col || !col->AllowEdit())
            return;
        bCancel = false;
        emit BeforeEdit(lRow, lColumn, bCancel);
        d->editing = !bCancel;
    });
    return !bCancel && d->editing;
}

void zelGridList::vfgItems_AfterEdit(qint32 lRow, qint32 lColumn, const QString &sText)
{
    zel::Trail t(this, "vfgItems_AfterEdit");
    t.Run([&] {
        // A window that is closing or being taken apart ends an edit as it
        // goes, when its host may be half gone: the edit lapses unheard.
        if (!d->editing || d->destroying || window()->isHidden()) {
            d->editing = false;
            return;
        }
        d->editing = false;
        const auto row = d->items->ItemAt(lRow);
        if (!row)
            return;
        row->SetCell(lColumn, sText);
        d->model->RowsChanged(lRow, lRow);
        emit EditCell(lRow, lColumn, sText);
        QString text = sText;
        emit EditCellByRef(lRow, lColumn, text);
        if (text != sText)
            row->SetCell(lColumn, text);
        if (d->model->IsColour(lColumn))
            SetColorCells(lRow);
        else
            d->model->RowsChanged(lRow, lRow);
    });
}

void zelGridList::vfgItems_EditCancelled()
{
    d->editing = false;
}

void zelGridList::vfgItems_ToggleCheck(qint32 lRow, qint32 lColumn)
{
    zel::Trail t(this, "vfgItems_ToggleCheck");
    t.Run([&] {
        if (!vfgItems_BeforeEdit(lRow, lColumn))
            return;
        d->editing = false;
        const auto row = d->items->ItemAt(lRow);
        if (!row)
            return;
        if (d->model->IsCheckColumn(lColumn)) {
            row->SetCheckedFlag(!row->Checked());
            d->model->RowsChanged(lRow, lRow);
            emit ItemChecked(lRow, row);
            return;
        }
        const QString text = zelGridModel::TextIsTrue(row->Cell(lColumn)) ? QStringLiteral("False")
                                                                          : QStringLiteral("True");
        d->editing = true;
        vfgItems_AfterEdit(lRow, lColumn, text);
    });
}

void zelGridList::vfgItems_ChooseColour(qint32 lRow, qint32 lColumn)
{
    zel::Trail t(this, "vfgItems_ChooseColour");
    t.Run([&] {
        if (!vfgItems_BeforeEdit(lRow, lColumn))
            return;
        const auto row = d->items->ItemAt(lRow);
        quint32 colour = 0;
        if (row)
            row->CellColour(lColumn, &colour); // the dialog starts at the cell's colour
        if (!row || !zel::platform().ChooseColor(colour, this)) {
            d->editing = false;
            return;
        }
        vfgItems_AfterEdit(lRow, lColumn, QString::number(qint32(colour)));
    });
}

void zelGridList::vfgItems_DblClick()
{
    zel::Trail t(this, "vfgItems_DblClick");
    t.Run([&] { emit DblClick(); });
}

void zelGridList::UserControl_EnterFocus()
{
    zel::Trail t(this, "UserControl_EnterFocus");
    const QScopedValueRollback<bool> busy(d->busy, true);
    t.Run(
        [&] {
            if (!d->editOnFocus || !zel::UserMode(this))
                return;
            d->vfgItems->EditCurrent();
        },
        true);
}
