#pragma once

// What the range editor and the value editor share: the grid extRanges (a
// Qt item view over a model that reads the editor's items, one row per
// item), the buttons cmdInsert and cmdRemove, the value column shaped by
// DstScalar and DstFormat, the style cell whose double-click opens the colour
// dialog, BeginUpdate/EndUpdate, and undo and redo of the user's edits
// (Ctrl+Z, Ctrl+Shift+Z), each raising Changed as the edit did.
//
// A host's own changes (Create, Clear and the like) are not undone: they end
// the history, so that an undo never takes back what the host did.

#include "core/zelProperties.h"
#include "zelCtrlExport.h"

#include <QVariant>
#include <QWidget>

#include <any>
#include <memory>
#include <optional>
#include <vector>

class QAbstractButton;
class QBoxLayout;
class QTableView;
class zelLegendModel;

class ZELCTRL_EXPORT zelLegendEditor : public QWidget, public zelPropertyHost
{
    Q_OBJECT
    Q_PROPERTY(QVariant DstScalar READ DstScalar WRITE SetDstScalar)
    Q_PROPERTY(QString DstFormat READ DstFormat WRITE SetDstFormat)
    Q_PROPERTY(QVariant ShowValue READ ShowValue WRITE SetShowValue)
    Q_PROPERTY(QVariant ShowLabel READ ShowLabel WRITE SetShowLabel)

public:
    // What a grid column shows.
    enum class Column
    {
        Lower,  // a range's lower bound
        Upper,  // a range's upper bound
        Source, // a value entry's source text
        Value,
        Style, // the colour
        Label,
    };

    ~zelLegendEditor() override;

    // Values are numbers shown with DstFormat; by default true. When false,
    // or for a value that is no number, the value shows as its text.
    bool DstScalar() const { return m_dstScalar; }
    void SetDstScalar(bool v);
    ZEL_LATE_BOUND(DstScalar)
    // Number format of the value column; empty (the default) shows numbers
    // plainly.
    QString DstFormat() const { return m_dstFormat; }
    void SetDstFormat(const QString &v);
    // Show the value column (by default true) and the label column (by
    // default false).
    bool ShowValue() const { return m_showValue; }
    void SetShowValue(bool v);
    ZEL_LATE_BOUND(ShowValue)
    bool ShowLabel() const { return m_showLabel; }
    void SetShowLabel(bool v);
    ZEL_LATE_BOUND(ShowLabel)

    // Redraws the grid from the items.
    Q_INVOKABLE void Refresh();
    // Hold back the grid's refreshes while a host makes many changes; the
    // grid shows them all at the EndUpdate that matches the first BeginUpdate.
    Q_INVOKABLE void BeginUpdate();
    Q_INVOKABLE void EndUpdate();

    // Takes back the last edit of the user, or puts it back again; false when
    // there is none. Each raises Changed.
    Q_INVOKABLE bool Undo();
    Q_INVOKABLE bool Redo();
    bool CanUndo() const { return !m_undo.empty(); }
    bool CanRedo() const { return !m_redo.empty(); }

    // The grid (extRanges) and the columns it shows, in order.
    QTableView *Grid() const { return m_grid; }
    const std::vector<Column> &Columns() const { return m_columns; }
    // The text a cell shows; row and column from 0.
    QString CellText(int row, int column) const;
    // Ends an in-place edit of a cell as the user would, with text in it.
    void EditCell(int row, int column, const QString &text);

    const QObject *PropertyOwner() const override { return this; }

signals:
    // Raised after every change that the user makes, and after each undo and
    // redo; never for a host's own changes.
    void Changed();
    // A persisted property was changed (the property store's mark).
    void PropertyChanged(const QString &name);

protected:
    explicit zelLegendEditor(QWidget *parent);

    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }

    // ---- What an editor tells the grid --------------------------------
    virtual int GridRows() const = 0;
    virtual QString ItemText(int row, Column c) const = 0;
    virtual std::optional<quint32> ItemColour(int row) const = 0;
    virtual bool ItemEditable(int row, Column c) const = 0;
    // The user ended an edit with text; true when the item took it.
    virtual bool AfterCellEdit(int row, Column c, const QString &text) = 0;
    virtual void SetItemColour(int row, quint32 colour) = 0;
    virtual void Insert() = 0;
    virtual void Remove() = 0;
    // The items as they are now, and putting them back to such a state.
    virtual std::any SaveItems() const = 0;
    virtual void RestoreItems(const std::any &state) = 0;

    // ---- What the grid offers an editor -------------------------------
    // Rebuilds the grid's columns (Clear) with these captions.
    void SetGridColumns(std::vector<Column> columns, const QStringList &captions);
    void SetCaption(Column c, const QString &caption);
    QString Caption(Column c) const;
    bool Updating() const { return m_updates > 0; }
    // The grid hears of a change, unless the editor is updating.
    void RowsInserted(int first, int count);
    void RowsRemoved(int first, int count);
    void RowChanged(int row);
    // The current row of the grid; -1 when there is none.
    int CurrentRow() const;
    void SetCurrentRow(int row);
    // The value column's text for a value.
    QString ValueText(const QVariant &value) const;
    // Runs a user's edit; when it says it changed something, the state
    // before goes on the undo history and Changed is raised.
    template <typename Edit> void UserEdit(Edit &&edit)
    {
        std::any before = SaveItems();
        m_inUserEdit = true;
        const bool changed = edit();
        m_inUserEdit = false;
        if (changed)
            Edited(std::move(before));
    }
    // A host's own change: the history ends here.
    void HostChange();
    // The row of buttons and boxes below the grid; an editor adds its own.
    QBoxLayout *ButtonRow() const { return m_buttonRow; }
    QAbstractButton *InsertButton() const { return m_cmdInsert; }
    QAbstractButton *RemoveButton() const { return m_cmdRemove; }

private:
    friend class zelLegendModel;

    void Edited(std::any before);
    void Swap(std::vector<std::any> &from, std::vector<std::any> &to);
    void ApplyColumnVisibility();
    void extRanges_DblClick(int row, int column);

    QTableView *m_grid = nullptr;
    zelLegendModel *m_model = nullptr;
    QAbstractButton *m_cmdInsert = nullptr;
    QAbstractButton *m_cmdRemove = nullptr;
    QBoxLayout *m_buttonRow = nullptr;
    std::vector<Column> m_columns;
    bool m_dstScalar = true;
    QString m_dstFormat;
    bool m_showValue = true;
    bool m_showLabel = false;
    int m_updates = 0;
    bool m_inUserEdit = false;
    std::vector<std::any> m_undo;
    std::vector<std::any> m_redo;
};
