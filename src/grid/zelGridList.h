#pragma once

// A list of rows in a grid, with a caption, a header built from column
// descriptions, optional check boxes, in-place editing of chosen columns
// (drop-down lists, check boxes, colour cells) and buttons beside or below
// the grid for adding, editing, deleting and moving rows.
//
// The control never adds, edits or deletes rows on a button press: it
// raises NewRow, Edit or Delete and lets the host change the list. Only the
// up and down moves are carried out here, and reported with RowMoved.
//
// Grid rows are numbered as the host sees them: row 0 is the header, data
// rows are 1 to Items.Count, and row object n of Items describes grid row n.
// Grid columns are numbered from 0; column i shows Columns item i + 1.

#include "buttons/zelButtonEnums.h"
#include "core/zelProperties.h"
#include "grid/zelGridColumns.h"
#include "grid/zelGridEnums.h"
#include "grid/zelGridLayout.h"
#include "grid/zelGridRows.h"
#include "grid/zelGridSizing.h"

#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>
#include <vector>

class QTableView;
struct zelGridListPrivate;

class ZELCTRL_EXPORT zelGridList : public QWidget, public zelPropertyHost
{
    Q_OBJECT
    Q_PROPERTY(QString Language READ Language WRITE SetLanguage)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(QVariant AutoSizeColZero READ AutoSizeColZero WRITE SetAutoSizeColZero)
    Q_PROPERTY(QVariant CheckBoxes READ CheckBoxes WRITE SetCheckBoxes)
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QVariant SelectionCol READ SelectionCol WRITE SetSelectionCol)
    Q_PROPERTY(QVariant AllowRepeatClicks READ AllowRepeatClicks WRITE SetAllowRepeatClicks)
    Q_PROPERTY(QVariant ButtonsOnSide READ ButtonsOnSide WRITE SetButtonsOnSide)
    Q_PROPERTY(QVariant ButtonsVisible READ ButtonsVisible WRITE SetButtonsVisible)
    Q_PROPERTY(QVariant ButtonsEnabled READ ButtonsEnabled WRITE SetButtonsEnabled)
    Q_PROPERTY(QVariant HighlightSelection READ HighlightSelection WRITE SetHighlightSelection)
    Q_PROPERTY(std::shared_ptr<zelGridColumns> Columns READ Columns)
    Q_PROPERTY(std::shared_ptr<zelGridRows> Items READ Items)
    Q_PROPERTY(std::shared_ptr<zelGridRows> SelectedItems READ SelectedItems)
    Q_PROPERTY(QVariant BorderStyle READ BorderStyle WRITE SetBorderStyle)
    Q_PROPERTY(QVariant TopMargin READ TopMargin WRITE SetTopMargin)
    Q_PROPERTY(QVariant Margin READ Margin WRITE SetMargin)
    Q_PROPERTY(QVariant MultiSelect READ MultiSelect WRITE SetMultiSelect)
    Q_PROPERTY(QVariant EditOnFocus READ EditOnFocus WRITE SetEditOnFocus)

public:
    explicit zelGridList(QWidget *parent = nullptr);
    ~zelGridList() override;

    // "English" (the default), "German" or "Deutsch": the buttons' captions.
    // "" is taken as "English"; a value that differs only in letter case
    // from the current one is ignored. Not persisted.
    QString Language() const;
    void SetLanguage(const QString &v);
    ZEL_LATE_BOUND(Language)
    // Shown above the grid; empty by default.
    QString Caption() const;
    void SetCaption(const QString &v);
    ZEL_LATE_BOUND(Caption)
    // Whether the first non-boolean column fills the width that the other
    // columns leave. By default true; a single column is never sized.
    bool AutoSizeColZero() const;
    void SetAutoSizeColZero(bool v);
    ZEL_LATE_BOUND(AutoSizeColZero)
    // A check box in every data row, as a first column of its own. False by
    // default.
    bool CheckBoxes() const;
    void SetCheckBoxes(bool v);
    ZEL_LATE_BOUND(CheckBoxes)
    bool Enabled() const;
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)
    // The grid column that a selected row highlights; any value outside the
    // columns (the default -2) highlights the whole row.
    qint32 SelectionCol() const;
    void SetSelectionCol(qint32 v);
    ZEL_LATE_BOUND(SelectionCol)
    // Kept and persisted for hosts; false by default.
    bool AllowRepeatClicks() const;
    void SetAllowRepeatClicks(bool v);
    ZEL_LATE_BOUND(AllowRepeatClicks)
    // Buttons in a column to the right of the grid (true) or in a bar below
    // it (false, the default).
    bool ButtonsOnSide() const;
    void SetButtonsOnSide(bool v);
    ZEL_LATE_BOUND(ButtonsOnSide)
    // ZEL_PrpButtons bit sets; by default 15 (Add, Remove, Properties, Help).
    qint32 ButtonsVisible() const;
    void SetButtonsVisible(qint32 v);
    ZEL_LATE_BOUND(ButtonsVisible)
    qint32 ButtonsEnabled() const;
    void SetButtonsEnabled(qint32 v);
    ZEL_LATE_BOUND(ButtonsEnabled)
    Q_INVOKABLE QString OptionButtonCaption(qint32 Index) const;
    Q_INVOKABLE void SetOptionButtonCaption(qint32 Index, const QString &sCaption);
    // A ZEL_Controls_HighlightSelections; by default ZEL_Highlight_WithFocus.
    // Another value is refused.
    qint32 HighlightSelection() const;
    void SetHighlightSelection(qint32 v);
    ZEL_LATE_BOUND(HighlightSelection)
    std::shared_ptr<zelGridColumns> Columns() const;
    std::shared_ptr<zelGridRows> Items() const;
    // A new collection of the rows selected now.
    std::shared_ptr<zelGridRows> SelectedItems();
    // The row object of grid row lRow; nothing for another row.
    Q_INVOKABLE std::shared_ptr<zelGridRow> RowData(qint32 lRow) const;
    // 0 no border, 1 (the default) a single line; another value is refused.
    qint16 BorderStyle() const;
    void SetBorderStyle(qint16 v);
    ZEL_LATE_BOUND(BorderStyle)
    // Twips above the grid (240) and around it (120).
    qint32 TopMargin() const;
    void SetTopMargin(qint32 v);
    ZEL_LATE_BOUND(TopMargin)
    qint32 Margin() const;
    void SetMargin(qint32 v);
    ZEL_LATE_BOUND(Margin)
    // Several rows may be selected, as in a list box. False by default;
    // not persisted.
    bool MultiSelect() const;
    void SetMultiSelect(bool v);
    ZEL_LATE_BOUND(MultiSelect)
    // Start editing the current cell when the grid gets the focus.
    bool EditOnFocus() const;
    void SetEditOnFocus(bool v);
    ZEL_LATE_BOUND(EditOnFocus)

    Q_INVOKABLE void ChangeEnabledButtons(ZEL_PrpButtons eButton, bool bEnabled);
    Q_INVOKABLE void ChangeVisibleButtons(ZEL_PrpButtons eButton, bool bVisible);
    Q_INVOKABLE bool LoadOptionButtonPicture(qint32 Index, const QVariant &oPicture);
    // A new column, added and shown (the grid is rebuilt).
    Q_INVOKABLE std::shared_ptr<zelGridColumn>
    AddColumn(const QString &sCaption, ZEL_Controls_ColumnAlign eAlign = ZEL_ColumnAlignLeft);
    Q_INVOKABLE std::shared_ptr<zelGridColumn>
    AddColumnEx(const QString &sCaption, ZEL_Controls_ColumnAlign eAlign = ZEL_ColumnAlignLeft,
                qint32 eDataType = 8, qint16 iDecimals = 0, qint16 iWidth = 0);
    // A new row with the tab-joined cell texts sRowText, at the end (lRow
    // negative or past the last row) or at grid row lRow. Nothing, and no
    // change, for a key that is already in the list. The first row of an
    // empty list becomes the current row.
    Q_INVOKABLE std::shared_ptr<zelGridRow> AddItem(const QString &sRowText, const QString &sKey,
                                                    const QVariant &oTag = QVariant(),
                                                    qint32 lRow = -1);
    Q_INVOKABLE std::shared_ptr<zelGridRow> AddItemEx(const QString &sRowText, const QString &sKey,
                                                      const QVariant &oTag = QVariant(),
                                                      qint32 lRow = -1, bool bChecked = false);
    // New text (and tag, when one is given) for grid row lRow, or, when
    // lRow is not a data row, for the row of key sKey.
    Q_INVOKABLE std::shared_ptr<zelGridRow> SetItem(const QString &sRowText, const QString &sKey,
                                                    const QVariant &oTag = QVariant(),
                                                    qint32 lRow = -1);
    Q_INVOKABLE bool SetItemColor(qint32 lRow, quint32 lColor);
    Q_INVOKABLE bool SetItemColorByKey(const QString &sKey, quint32 lColor);
    Q_INVOKABLE bool CheckItem(qint32 lRow, bool bChecked);
    Q_INVOKABLE bool CheckItemByKey(const QString &sKey, bool bChecked);
    // Removes every row; answers true.
    Q_INVOKABLE QVariant Clear();
    Q_INVOKABLE bool RemoveItem(qint32 lRow);
    Q_INVOKABLE bool RemoveItemByKey(const QString &sKey);
    // Makes the row of this key the current row (raising no selection event).
    Q_INVOKABLE bool SelectItem(const QString &sKey);
    // Shows the rows again as Items holds them now; answers true.
    Q_INVOKABLE QVariant Refresh();
    // Rebuilds the grid's columns from Columns, and its rows from Items.
    Q_INVOKABLE void RefreshColumns();
    Q_INVOKABLE void FocusOnButton(ZEL_PrpButtons eButton);

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

    // The grid's current row (0 when there is none) and column.
    qint32 CurrentRow() const;
    qint32 CurrentColumn() const;
    // Sizes the first non-boolean column (see AutoSizeColZero).
    void SizeColZero();
    // Twips: the grid's inner width, and the width of grid column i.
    qint32 GridClientWidth() const;
    qint32 ColumnWidth(int column) const;
    // The layout last applied, and laying the control out again (its resize
    // handler).
    const zelGridListLayout &GridLayout() const;
    void LayoutControl();
    QTableView *Grid() const;

signals:
    // The user asks for a new row, meant to go at lRow (below the current one).
    void NewRow(qint32 lRow);
    void Delete(qint32 lRow, const QString &sKey);
    // The control moved row lOldRow to lNewRow.
    void RowMoved(qint32 lOldRow, qint32 &lNewRow);
    void Edit(qint32 lRow);
    // An in-place edit ended with sText in the cell.
    void EditCell(qint32 lRow, qint32 lColumn, const QString &sText);
    // Raised after EditCell: the text the host leaves in sText is the cell's.
    void EditCellByRef(qint32 lRow, qint32 lColumn, QString &sText);
    // Row lRow became the current row through the user (not raised while
    // the control itself selects a row).
    void SelectedItem(const QString &sKey, qint32 lRow);
    void DblClick();
    // An in-place edit of an editable cell is about to start; set bCancel
    // to refuse it.
    void BeforeEdit(qint32 lRow, qint32 lColumn, bool &bCancel);
    void SelectionChanged();
    // The user ticked or cleared the check box of row lRow.
    void ItemChecked(qint32 lRow, const std::shared_ptr<zelGridRow> &oRow);
    void OptionClicked(qint32 lIndex);
    // A persisted property was changed (the property store's mark).
    void PropertyChanged(const QString &name);

protected:
    const QObject *PropertyOwner() const override { return this; }
    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }
    void Refresh(quint32 what) override;

    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void InitGrid();
    void ApplyColumnWidths();
    // Twips, shown as `pixels` when given, else as the twips come to.
    void SetColumnWidth(int column, qint32 twips, int pixels = -1);
    int GridClientPixels() const;
    // What SizeColZero reads now.
    zelColZeroInput SizingInput() const;
    void SetColorCells(qint32 lRow);
    void SetBackColor(qint32 lRow);
    qint32 FindRow(const QString &sKey) const;
    void EnableControls();
    void SetVisibleButtons();
    void ApplyLanguage();
    void ApplySelectionMode();

    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdUp_Click();
    void cmdDown_Click();
    void MoveRow(qint32 r, qint32 to);
    void mpbProps_Add();
    void mpbProps_Remove();
    void mpbProps_Properties();
    void mpbProps_OptionButton(qint32 Index);
    void vfgItems_RowColChange();
    bool vfgItems_BeforeEdit(qint32 lRow, qint32 lColumn);
    void vfgItems_AfterEdit(qint32 lRow, qint32 lColumn, const QString &sText);
    void vfgItems_EditCancelled();
    void vfgItems_ToggleCheck(qint32 lRow, qint32 lColumn);
    void vfgItems_ChooseColour(qint32 lRow, qint32 lColumn);
    void vfgItems_DblClick();
    void UserControl_EnterFocus();

    // What a property change refreshes (Refresh), in the order carried out.
    enum RefreshParts : quint32
    {
        RefreshCaption = 0x01,
        RefreshBorder = 0x02,
        RefreshEnabled = 0x04,
        RefreshLanguage = 0x08,
        RefreshButtons = 0x10,
        RefreshSelectionMode = 0x20,
        RefreshLayout = 0x40, // and the sizing
        RefreshSizing = 0x80,
        RefreshCells = 0x100,
    };

    std::unique_ptr<zelGridListPrivate> d;
};
