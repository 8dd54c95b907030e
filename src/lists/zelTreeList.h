#pragma once

// Keyed records shown as a multi-column tree. Each row is a zelComboRecord
// whose Parent is the record of its parent row and whose Level is its depth.
// Rows carry a picture chosen by image key, can be disabled, expanded and
// collapsed by key or by depth (ExpandLevel) and selected by key; every
// change of the selected row raises Changed(bUserClick).
//
// Columns take the combo's column string with "_" hiding a column; the tree
// always has one column more than the column string has entries, a hidden
// last column "Hidden", so the data columns are all but the last.

#include "core/zelProperties.h"
#include "lists/zelComboRecordRef.h"
#include "lists/zelComboRecords.h"
#include "lists/zelRecordSelection.h"

#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>
#include <vector>

class QTreeView;
class zelRecordModel;
namespace zel {
class zelImageList;
}

class ZELCTRL_EXPORT zelTreeList : public QWidget, public zelPropertyHost
{
    Q_OBJECT
    Q_CLASSINFO("DispId.SelectedKey", "0x68030000")
    Q_CLASSINFO("DispId.SelectedRecord", "0x68030001")
    Q_CLASSINFO("DispId.Records", "0x68030002")
    Q_CLASSINFO("DispId.Columns", "0x68030003")
    Q_CLASSINFO("DispId.Sorted", "0x68030004")
    Q_CLASSINFO("DispId.Enabled", "0x68030005")
    Q_CLASSINFO("DispId.AddItem", "0x60030006")
    Q_CLASSINFO("DispId.Clear", "0x60030007")
    Q_CLASSINFO("DispId.SelectItem", "0x60030008")
    Q_CLASSINFO("DispId.HeaderVisible", "0x68030009")
    Q_CLASSINFO("DispId.ExpandItem", "0x6003000a")
    Q_CLASSINFO("DispId.PaintHeaderCells", "0x6003000b")
    Q_CLASSINFO("DispId.ClearImages", "0x6003000d")
    Q_CLASSINFO("DispId.ReplaceImage", "0x6003000e")
    Q_CLASSINFO("DispId.UpdateImage", "0x60030011")
    Q_CLASSINFO("DispId.ExpandLevel", "0x68030012")
    Q_CLASSINFO("DispId.Changed", "1")
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QVariant Sorted READ Sorted WRITE SetSorted)
    Q_PROPERTY(QString Columns READ Columns WRITE SetColumns)
    Q_PROPERTY(std::shared_ptr<zelComboRecords> Records READ Records)
    Q_PROPERTY(std::shared_ptr<zelComboRecord> SelectedRecord READ SelectedRecord)
    Q_PROPERTY(QString SelectedKey READ SelectedKey)
    Q_PROPERTY(QVariant HeaderVisible READ HeaderVisible WRITE SetHeaderVisible)
    Q_PROPERTY(QVariant ExpandLevel READ ExpandLevel WRITE SetExpandLevel)

public:
    explicit zelTreeList(QWidget *parent = nullptr);
    ~zelTreeList() override;

    // True by default and again after every load: a loaded tree list is
    // always enabled, whatever was saved. Enter moves to the next control
    // only while it is true. Not marked in the property store.
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)
    // Rows are put in order of their first column as they are added; rows
    // already there are not sorted again. False by default.
    bool Sorted() const { return m_sorted; }
    void SetSorted(bool v);
    ZEL_LATE_BOUND(Sorted)
    // The last column string set; "" by default. It reaches the tree
    // only at run time and not while a form loads (the load applies it when
    // it has read every key). The columns are built anew (and the rows
    // cleared) only when the number of entries changes; otherwise each
    // column takes its new caption, alignment, width and visibility in place.
    QString Columns() const { return m_columns; }
    void SetColumns(const QString &v);
    std::shared_ptr<zelComboRecords> Records() const { return m_records; }
    std::shared_ptr<zelComboRecord> SelectedRecord() const;
    // Key of SelectedRecord; "" when nothing is selected.
    QString SelectedKey() const;
    // The host's wish for a column header (true by default); the header is
    // shown only with two data columns or more.
    bool HeaderVisible() const { return m_headerVisible; }
    void SetHeaderVisible(bool v);
    ZEL_LATE_BOUND(HeaderVisible)
    // The depth given last; 0 by default. Setting it expands every row above
    // that depth and collapses every row at it, in one layout of the tree;
    // deeper rows stay as they are.
    qint32 ExpandLevel() const { return m_expandLevel; }
    void SetExpandLevel(qint32 v);
    ZEL_LATE_BOUND(ExpandLevel)

    // A new row for the tab-joined column texts sData under the row of
    // sParentKey (at the top when there is none; the parent key is compared
    // in its letter case). sText, when given, is shown in the tree column in
    // place of the first text. Nothing, and no row, for an empty sData, more
    // texts than data columns, or a key that is taken in any letter case.
    // Late bound, the record comes back as a std::shared_ptr (a QObject).
#ifdef Q_MOC_RUN
    Q_INVOKABLE std::shared_ptr<zelComboRecord>
#else
    zelComboRecordRef
#endif
    AddItem(const QString &sParentKey, const QString &sKey, const QString &sData,
            const QString &sText = QString(), const QVariant &oTag = QVariant(),
            const QVariant &vImageKey = QVariant(), bool bEnabled = true,
            bool bExpandParent = true);
    // Every row and record goes; records a host holds live on. No Changed.
    Q_INVOKABLE void Clear();
    // Selects the row of sKey (letter case counts); see zelRecordSelection.
    Q_INVOKABLE bool SelectItem(const QString &sKey);
    Q_INVOKABLE bool ExpandItem(const QString &sKey, bool bExpanded);
    // Paints the cells lStartCol..lEndCol of row lRow light green and bold,
    // to mark a data row as a header. Rows are counted from 0 in the order
    // they were added; an lRow of -1 is the row added last, so that a call
    // right after AddItem marks that row. Columns of -1 are the first and
    // the last column. False, and nothing painted, for a row or a column
    // range that is not there.
    Q_INVOKABLE bool PaintHeaderCells(qint32 lRow = -1, qint32 lStartCol = -1, qint32 lEndCol = -1);
    // Every picture and image key goes, the 41 built-in ones too.
    Q_INVOKABLE void ClearImages();
    // Stores the picture lHandle (QPixmap, QImage, QIcon or a file name)
    // under sKey, in place of the picture a known key shows. A handle that
    // gives no picture is logged and changes nothing.
    Q_INVOKABLE void ReplaceImage(const QString &sKey, const QVariant &lHandle);
    Q_INVOKABLE bool UpdateImage(const QString &sKey, const QVariant &vImageKey);

    Q_INVOKABLE void InitProperties() override
    {
        zelPropertyHost::InitProperties();
    }
    void ReadProperties(zelPropertyBag &bag) override;
    const zel::zelPropertyTable &Properties() const override;

    // The tree and its rows, for hosts that style them and for tests.
    QTreeView *Tree() const
    {
        flush();
        return m_extGrid;
    }
    zelRecordModel *Model() const
    {
        flush();
        return m_model;
    }
    const zel::zelImageList &Images() const
    {
        return *m_images;
    }

signals:
    // Raised after every change of the selected row: bUserClick is false
    // while SelectItem runs and true for the user's own choice. Not raised
    // by Clear, nor by a Columns change that clears the rows.
    void Changed(bool bUserClick);
    // A persisted property was changed (the property store's mark).
    void PropertyChanged(const QString &name);

protected:
    const QObject *PropertyOwner() const override
    {
        return this;
    }
    void MarkChanged(const QString &name) override
    {
        emit PropertyChanged(name);
    }
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Selection;
    void applyColumns(const QString &colText);
    void applyHeader();
    void applyEnabled();
    bool columnsLive() const;
    void extGrid_SelectionChanged();
    // A fill's rows are shown in one go: AddItem opens a batch of the
    // model's, which ends when the event loop next runs or any other
    // member needs the tree.
    void beginBatch();
    void flush() const;

    QTreeView *m_extGrid = nullptr;
    zelRecordModel *m_model = nullptr;
    zel::zelImageList *m_images = nullptr;
    std::shared_ptr<zelComboRecords> m_records;
    std::unique_ptr<Selection> m_view;
    std::unique_ptr<zelRecordSelection> m_selection;
    QString m_columns;
    qint32 m_expandLevel = 0;
    bool m_enabled = true;
    bool m_sorted = false;
    bool m_headerVisible = true;
    bool m_loading = false;
    mutable bool m_batching = false;
    // Set while the tree shows what the model asks, so it is not sent back.
    bool m_syncing = false;
};
