// The grid list's properties: one table, in load order, and the setters
// that follow from it.

#include "buttons/zelPrpButtons.h"
#include "core/zelError.h"
#include "grid/zelGridList.h"
#include "grid/zelGridList_p.h"
#include "grid/zelGridModel_p.h"
#include "grid/zelGridView_p.h"

#include <QLabel>

const zel::zelPropertyTable &zelGridList::Properties() const
{
    using G = zelGridList;
    using zel::Prop;
    const quint32 stored = zel::Init;
    static const zel::zelPropertyTable table({
        Prop("BorderStyle", &G::BorderStyle, &G::SetBorderStyle)
            .Persist()
            .Default(qint16(1))
            .With(stored)
            .Refreshes(RefreshBorder | RefreshSizing),
        Prop("Margin", &G::Margin, &G::SetMargin)
            .Persist()
            .Default(qint32(120))
            .With(stored)
            .Refreshes(RefreshLayout),
        Prop("TopMargin", &G::TopMargin, &G::SetTopMargin)
            .Persist()
            .Default(qint32(240))
            .With(stored)
            .Refreshes(RefreshLayout),
        Prop("ButtonsVisible", &G::ButtonsVisible, &G::SetButtonsVisible)
            .Persist()
            .Default(qint32(15))
            .With(stored)
            .Refreshes(RefreshButtons | RefreshLayout),
        Prop("ButtonsEnabled", &G::ButtonsEnabled, &G::SetButtonsEnabled)
            .Persist()
            .Default(qint32(15))
            .With(stored)
            .Refreshes(RefreshButtons),
        Prop("Enabled", &G::Enabled, &G::SetEnabled)
            .Persist()
            .Default(true)
            .With(stored)
            .Refreshes(RefreshEnabled),
        Prop("HighlightSelection", &G::HighlightSelection, &G::SetHighlightSelection)
            .Persist()
            .Default(qint32(ZEL_Highlight_WithFocus))
            .With(stored)
            .Refreshes(RefreshCells),
        Prop("Caption", &G::Caption, &G::SetCaption)
            .Persist()
            .Default(QString())
            .With(stored)
            .Refreshes(RefreshCaption | RefreshLayout),
        Prop("ButtonsOnSide", &G::ButtonsOnSide, &G::SetButtonsOnSide)
            .Persist()
            .Default(false)
            .With(stored)
            .Refreshes(RefreshButtons | RefreshLayout),
        Prop("AllowRepeatClicks", &G::AllowRepeatClicks, &G::SetAllowRepeatClicks)
            .Persist()
            .Default(false)
            .With(stored),
        Prop("SelectionCol", &G::SelectionCol, &G::SetSelectionCol)
            .Persist()
            .Default(qint32(-2))
            .With(stored)
            .Refreshes(RefreshCells),
        // Rebuilds the columns (its setter's own step), so only on a change.
        Prop("CheckBoxes", &G::CheckBoxes, &G::SetCheckBoxes)
            .Persist()
            .Default(false)
            .With(zel::Init),
        Prop("EditOnFocus", &G::EditOnFocus, &G::SetEditOnFocus)
            .Persist()
            .Default(false)
            .With(stored),
        Prop("AutoSizeColZero", &G::AutoSizeColZero, &G::SetAutoSizeColZero)
            .Persist()
            .Default(true)
            .With(stored)
            .Refreshes(RefreshSizing),
        // Neither persisted nor marked.
        Prop("MultiSelect", &G::MultiSelect, &G::SetMultiSelect)
            .Default(false)
            .With(zel::NoMark)
            .Refreshes(RefreshSelectionMode),
        Prop("Language", &G::Language, &G::SetLanguage)
            .Default(QStringLiteral("English"))
            .With(zel::Init | zel::NoMark)
            .Refreshes(RefreshLanguage | RefreshLayout),
    });
    return table;
}

QString zelGridList::Language() const
{
    return d->language;
}

QString zelGridList::Caption() const
{
    return d->caption;
}

bool zelGridList::AutoSizeColZero() const
{
    return d->autoSizeColZero;
}

bool zelGridList::CheckBoxes() const
{
    return d->checkBoxes;
}

bool zelGridList::Enabled() const
{
    return d->enabled;
}

qint32 zelGridList::SelectionCol() const
{
    return d->selectionCol;
}

bool zelGridList::AllowRepeatClicks() const
{
    return d->allowRepeatClicks;
}

bool zelGridList::ButtonsOnSide() const
{
    return d->buttonsOnSide;
}

qint32 zelGridList::ButtonsVisible() const
{
    return d->buttonsVisible;
}

qint32 zelGridList::ButtonsEnabled() const
{
    return d->buttonsEnabled;
}

qint32 zelGridList::HighlightSelection() const
{
    return d->highlight;
}

std::shared_ptr<zelGridColumns> zelGridList::Columns() const
{
    return d->columns;
}

std::shared_ptr<zelGridRows> zelGridList::Items() const
{
    return d->items;
}

qint16 zelGridList::BorderStyle() const
{
    return d->borderStyle;
}

qint32 zelGridList::TopMargin() const
{
    return d->topMargin;
}

qint32 zelGridList::Margin() const
{
    return d->margin;
}

bool zelGridList::MultiSelect() const
{
    return d->multiSelect;
}

bool zelGridList::EditOnFocus() const
{
    return d->editOnFocus;
}

void zelGridList::Refresh(quint32 what)
{
    if (what & RefreshCaption)
        d->lblCaption->setText(d->caption);
    if (what & RefreshBorder)
        d->vfgItems->setFrameShape(d->borderStyle ? QFrame::StyledPanel : QFrame::NoFrame);
    if (what & RefreshEnabled)
        QWidget::setEnabled(d->enabled);
    if (what & RefreshLanguage) {
        d->mpbProps->SetLanguage(d->language);
        ApplyLanguage();
    }
    if (what & RefreshButtons) {
        d->mpbProps->SetButtonsVisible(d->buttonsVisible);
        d->mpbProps->SetButtonsEnabled(d->buttonsEnabled);
        SetVisibleButtons();
    }
    if (what & RefreshSelectionMode) {
        ApplySelectionMode();
        d->model->RowsChanged(1, d->items->Count());
    }
    if (what & RefreshLayout)
        LayoutControl(); // sizes the columns too
    else if (what & RefreshSizing)
        SizeColZero();
    if (what & RefreshCells)
        d->vfgItems->viewport()->update();
}

void zelGridList::SetLanguage(const QString &v)
{
    Let(
        "Language", d->language,
        [&] {
            const QString language = v.isEmpty() ? QStringLiteral("English") : v;
            // A change of letter case alone keeps the spelling held.
            return language.compare(d->language, Qt::CaseInsensitive) == 0 ? d->language : language;
        },
        [] {});
}

void zelGridList::SetCaption(const QString &v)
{
    Let("Caption", d->caption, v);
}

void zelGridList::SetAutoSizeColZero(bool v)
{
    Let("AutoSizeColZero", d->autoSizeColZero, v);
}

void zelGridList::SetCheckBoxes(bool v)
{
    LetThen("CheckBoxes", d->checkBoxes, v, [&] {
        if (d->checkBoxes) {
            auto columns = std::make_shared<zelGridColumns>();
            auto check = columns->Create(QString(), ZEL_ColumnAlignCenter);
            check->SetAllowEdit(true);
            check->SetDataType(zelGridType::Boolean);
            check->SetWidth(240);
            for (const auto &col : *d->columns)
                columns->Add(col);
            d->columns = columns;
        } else {
            d->columns->Remove(1);
        }
        InitGrid();
    });
}

void zelGridList::SetEnabled(bool v)
{
    Let("Enabled", d->enabled, v);
}

void zelGridList::SetSelectionCol(qint32 v)
{
    Let("SelectionCol", d->selectionCol, v);
}

void zelGridList::SetAllowRepeatClicks(bool v)
{
    Let("AllowRepeatClicks", d->allowRepeatClicks, v);
}

void zelGridList::SetButtonsOnSide(bool v)
{
    Let("ButtonsOnSide", d->buttonsOnSide, v);
}

void zelGridList::SetButtonsVisible(qint32 v)
{
    Let("ButtonsVisible", d->buttonsVisible, v);
}

void zelGridList::SetButtonsEnabled(qint32 v)
{
    Let("ButtonsEnabled", d->buttonsEnabled, v);
}

void zelGridList::SetHighlightSelection(qint32 v)
{
    Let(
        "HighlightSelection", d->highlight,
        [&] {
            if (v < ZEL_Highlight_Never || v > ZEL_Highlight_WithFocus)
                throw zelError(zelError::InvalidPropertyValue);
            return v;
        },
        [] {});
}

void zelGridList::SetBorderStyle(qint16 v)
{
    Let(
        "BorderStyle", d->borderStyle,
        [&] {
            if (v != 0 && v != 1)
                throw zelError(zelError::InvalidPropertyValue);
            return v;
        },
        [] {});
}

void zelGridList::SetTopMargin(qint32 v)
{
    Let("TopMargin", d->topMargin, v);
}

void zelGridList::SetMargin(qint32 v)
{
    Let("Margin", d->margin, v);
}

void zelGridList::SetMultiSelect(bool v)
{
    Let("MultiSelect", d->multiSelect, v);
}

void zelGridList::SetEditOnFocus(bool v)
{
    Let("EditOnFocus", d->editOnFocus, v);
}
