// The grid list's properties: one table, in load order, and the setters
// that follow from it.

#include "buttons/zelPrpButtons.h"
#include "core/zelError.h"
#include "grid/zelGridList.h"
#include "grid/zelGridList_p.h"

#include <QLabel>

const zel::zelPropertyTable &zelGridList::Properties() const
{
    using G = zelGridList;
    using zel::Prop;
    // Every setter of the control marks and refreshes also when given the
    // value it holds; only CheckBoxes and Language act on a change alone.
    const quint32 stored = zel::Init | zel::Always;
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
            .With(zel::NoMark | zel::Always)
            .Refreshes(RefreshSelectionMode),
        Prop("Language", &G::Language, &G::SetLanguage)
            .Default(QStringLiteral("English"))
            .With(zel::Init | zel::NoMark)
            .Refreshes(RefreshLanguage | RefreshLayout),
    });
    return table;
}

void zelGridList::Refresh(quint32 what)
{
    if (what & RefreshCaption)
        m_lblCaption->setText(m_caption);
    if (what & RefreshBorder)
        m_vfgItems->setFrameShape(m_borderStyle ? QFrame::StyledPanel : QFrame::NoFrame);
    if (what & RefreshEnabled)
        QWidget::setEnabled(m_enabled);
    if (what & RefreshLanguage) {
        m_mpbProps->SetLanguage(m_language);
        ApplyLanguage();
    }
    if (what & RefreshButtons) {
        m_mpbProps->SetButtonsVisible(m_buttonsVisible);
        m_mpbProps->SetButtonsEnabled(m_buttonsEnabled);
        SetVisibleButtons();
    }
    if (what & RefreshSelectionMode) {
        ApplySelectionMode();
        m_model->RowsChanged(1, m_items->Count());
    }
    if (what & RefreshLayout)
        LayoutControl(); // sizes the columns too
    else if (what & RefreshSizing)
        SizeColZero();
    if (what & RefreshCells)
        m_vfgItems->viewport()->update();
}

void zelGridList::SetLanguage(const QString &v)
{
    Let(
        "Language", m_language,
        [&] {
            const QString language = v.isEmpty() ? QStringLiteral("English") : v;
            // A change of letter case alone keeps the spelling held.
            return language.compare(m_language, Qt::CaseInsensitive) == 0 ? m_language
                                                                           : language;
        },
        [] {});
}

void zelGridList::SetCaption(const QString &v)
{
    Let("Caption", m_caption, v);
}

void zelGridList::SetAutoSizeColZero(bool v)
{
    Let("AutoSizeColZero", m_autoSizeColZero, v);
}

void zelGridList::SetCheckBoxes(bool v)
{
    LetThen("CheckBoxes", m_checkBoxes, v, [&] {
        if (m_checkBoxes) {
            auto columns = std::make_shared<zelGridColumns>();
            auto check = columns->Create(QString(), ZEL_ColumnAlignCenter);
            check->SetAllowEdit(true);
            check->SetDataType(zelGridType::Boolean);
            check->SetWidth(240);
            for (const auto &col : *m_columns)
                columns->Add(col);
            m_columns = columns;
        } else {
            m_columns->Remove(1);
        }
        InitGrid();
    });
}

void zelGridList::SetEnabled(bool v)
{
    Let("Enabled", m_enabled, v);
}

void zelGridList::SetSelectionCol(qint32 v)
{
    Let("SelectionCol", m_selectionCol, v);
}

void zelGridList::SetAllowRepeatClicks(bool v)
{
    Let("AllowRepeatClicks", m_allowRepeatClicks, v);
}

void zelGridList::SetButtonsOnSide(bool v)
{
    Let("ButtonsOnSide", m_buttonsOnSide, v);
}

void zelGridList::SetButtonsVisible(qint32 v)
{
    Let("ButtonsVisible", m_buttonsVisible, v);
}

void zelGridList::SetButtonsEnabled(qint32 v)
{
    Let("ButtonsEnabled", m_buttonsEnabled, v);
}

void zelGridList::SetHighlightSelection(qint32 v)
{
    Let(
        "HighlightSelection", m_highlight,
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
        "BorderStyle", m_borderStyle,
        [&] {
            if (v != 0 && v != 1)
                throw zelError(zelError::InvalidPropertyValue);
            return v;
        },
        [] {});
}

void zelGridList::SetTopMargin(qint32 v)
{
    Let("TopMargin", m_topMargin, v);
}

void zelGridList::SetMargin(qint32 v)
{
    Let("Margin", m_margin, v);
}

void zelGridList::SetMultiSelect(bool v)
{
    Let("MultiSelect", m_multiSelect, v);
}

void zelGridList::SetEditOnFocus(bool v)
{
    Let("EditOnFocus", m_editOnFocus, v);
}
