#pragma once

// What the combo and the combo tree share: a labelled combo box (cboValue)
// whose drop-down shows the records as a tree view over one row model, the
// records themselves, the selection rules, the column string, the
// list's least width and height, the Enabled and ReadOnly colours and Enter
// as Tab.
//
// The combo box itself never holds the rows: it shows the chosen row's text
// as its only item, and its drop-down is a popup of the control's own. So a
// million rows cost the combo box nothing, it never picks a row by itself
// when rows arrive, and its arrow keys step through the rows in the order
// the drop-down shows them, nested rows included.

#include "core/zelFieldFrame.h"
#include "lists/zelComboRecordRef.h"
#include "lists/zelComboRecords.h"
#include "lists/zelRecordModel.h"
#include "lists/zelRecordSelection.h"
#include "zelCtrlExport.h"

#include <QList>
#include <QString>

#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

class QKeyEvent;
class QTreeView;
class zelRecordComboBox;
class zelRecordPopup;

namespace zel {

// The drop-down's least width: columnsPixels are the widths of the visible
// columns. A combo at least as wide (in twips) as their sum needs no least
// width and fits the columns to itself; a narrower one opens a list 4 pixels
// wider than the columns.
struct zelListWidth
{
    qint32 MinWidth = 0; // pixels; 0: the combo's own width
    bool AutoFit = true;

    bool operator==(const zelListWidth &) const = default;
};
ZELCTRL_EXPORT zelListWidth ListWidth(const QList<qint32> &columnsPixels, qint32 comboTwips,
                                      double twipsPerPixel);

} // namespace zel

class ZELCTRL_EXPORT zelRecordCombo : public zelLabelledField
{
    Q_OBJECT
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QVariant ReadOnly READ ReadOnly WRITE SetReadOnly)
    Q_PROPERTY(QVariant Sorted READ Sorted WRITE SetSorted)
    Q_PROPERTY(QString Columns READ Columns WRITE SetColumns)
    Q_PROPERTY(std::shared_ptr<zelComboRecords> Records READ Records)
    Q_PROPERTY(std::shared_ptr<zelComboRecord> SelectedRecord READ SelectedRecord)

public:
    ~zelRecordCombo() override;

    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)
    // By default false.
    bool ReadOnly() const { return m_readOnly; }
    void SetReadOnly(bool v);
    ZEL_LATE_BOUND(ReadOnly)
    // Rows added later go into their place by column 0; rows already there
    // stay where they are. By default false.
    bool Sorted() const { return m_sorted; }
    void SetSorted(bool v);
    ZEL_LATE_BOUND(Sorted)
    // The last column string set; setting one while rows exist clears them
    // first, without a Changed event.
    QString Columns() const { return m_columns; }
    void SetColumns(const QString &v);

    std::shared_ptr<zelComboRecords> Records() const { return m_records; }
    // Nothing while no row is selected.
    std::shared_ptr<zelComboRecord> SelectedRecord() const { return m_selection.SelectedRecord(); }

    // Every row and record goes, nothing stays selected, and no Changed is
    // raised. Records a host holds stay valid.
    Q_INVOKABLE void Clear();
    // Selects the row whose key is sKey (letter case counts). Answers
    // whether there was one; see zelRecordSelection for the events.
    Q_INVOKABLE bool SelectItem(const QString &sKey);
    // Rows added between them reach the drop-down at once at the end.
    Q_INVOKABLE void BeginUpdate();
    Q_INVOKABLE void EndUpdate();

    // The drop-down as it opens: height and least width in pixels, and
    // whether the columns are fitted to the combo's width.
    qint32 DropDownHeight() const { return m_dropDownHeight; }
    qint32 ListMinWidth() const { return m_listWidth.MinWidth; }
    bool ColumnsAutoFit() const { return m_listWidth.AutoFit; }
    const zelRecordModel &Model() const
    {
        flush();
        return *m_model;
    }
    // The tree view of the drop-down, shown or not.
    QTreeView *DropDownView() const;
    void ShowDropDown();
    void HideDropDown();
    bool DropDownVisible() const;

signals:
    // After every change of the selected row; bUserClick is false while
    // SelectItem runs.
    void Changed(bool bUserClick);

protected:
    // tree: records nest, and the drop-down shows branches.
    // enabled: what Enabled holds before anything sets it.
    zelRecordCombo(bool tree, bool enabled, QWidget *parent);

    // The steps of AddItem after the checks of the caller: the record, the
    // row, the drop-down height. Nothing when sData holds more texts than
    // there are columns, or when the key is taken.
    zelComboRecordRef AddRecordRow(zel::Trail &t, const QString &sParentKey, const QString &sKey,
                                   const QString &sData, const QVariant &oTag, const QString &sText,
                                   int imageIndex, bool bEnabled, bool bExpandParent);
    // The frame's entries (16-bit widths) without those named in dropped,
    // and each control's own entries inserted after the entry named first.
    static std::vector<zel::zelPropertyDecl> RecordComboEntries(
        std::initializer_list<const char *> dropped,
        std::initializer_list<std::pair<const char *, std::vector<zel::zelPropertyDecl>>> inserts);
    // The widget's key press (code 13 asks the control what to do with it).
    virtual void cboValue_KeyPress(qint16 &KeyAscii) = 0;
    zelRecordModel &model() { return *m_model; }
    // Shows the chosen row's text and picture in the closed combo box.
    void showChosen();
    QWidget *comboBox() const;
    // The foreground colours follow Enabled in the combo, not in the tree.
    bool m_paintsForeground = true;

    void PlaceInput(const QRect &twips) override;

private:
    class Rows;
    friend class zelRecordPopup;

    void applyColumns(const QString &colText);
    void setMinWidthList();
    void applyReadOnly();
    void paintCombo(bool faceBackground, bool greyText);
    // The row the user or SelectItem chose (0: none); the selection rules
    // hear of it when it changes.
    void choose(int handle);
    // While the drop-down is closed, a fill's rows reach it in one go:
    // AddItem opens a batch of the model's, which ends when the event loop
    // next runs or any other member needs the drop-down.
    void beginBatch();
    void flush() const;
    // A key in the closed combo box; true when it was taken.
    bool closedKey(QKeyEvent *event);
    // The next enabled row in the drop-down's order, step rows on.
    int stepFrom(int handle, int step) const;

    std::shared_ptr<zelComboRecords> m_records;
    std::unique_ptr<zelRecordModel> m_model;
    std::unique_ptr<Rows> m_rows;
    zelRecordSelection m_selection;
    zelRecordComboBox *m_cboValue = nullptr;
    zelRecordPopup *m_popup = nullptr;
    QList<qint32> m_widths; // pixels, one per column
    zel::zelListWidth m_listWidth;
    QString m_columns;
    qint32 m_dropDownHeight = 80;
    int m_chosen = 0;
    bool m_enabled = false;
    bool m_readOnly = false;
    bool m_sorted = false;
    mutable bool m_batching = false;
};
