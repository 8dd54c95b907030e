#pragma once

// The rows of a combo, a tree list or a combo tree, for the tree views that
// show them. Each row is held once, in the entry of its record in the
// record store (zelRecordStore) that the model shares with the records: the
// texts it was added with (a later write to the record's Data does not
// change the row), its place in the tree, picture and state. Rows are
// addressed by handles, 1 and up in the order they were added (the entry
// numbers); 0 is none. Handles stay valid until Clear.
//
// Sorting is by the caption of column 0, compared without regard to letter
// case (Unicode case folding, no locale), and stable: rows with the same
// caption keep the order in which they came. A sorted add leaves the
// parent's rows as a stable sort of them after that add would; it inserts
// at the upper bound when the parent's rows are known to be in order, and
// sorts the rows added unsorted before and merges them in once. Inside
// BeginUpdate / EndUpdate adds only append, and each parent is sorted once
// when the update ends or its rows are first read: a million adds in an
// update take O(n log n). Outside an update a sorted add moves the rows
// after it, O(siblings), as much as an attached view spends on it anyway.

#include "lists/zelColumnString.h"
#include "lists/zelComboRecord.h"
#include "lists/zelRecordStore.h"
#include "zelCtrlExport.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>
#include <QList>
#include <QSet>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class ZELCTRL_EXPORT zelRecordModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using RecordPtr = std::shared_ptr<zelComboRecord>;
    // The picture of a 1-based image index; the control knows its images.
    using ImageProvider = std::function<QIcon(int index)>;

    explicit zelRecordModel(QObject *parent = nullptr);
    ~zelRecordModel() override;

    // Columns: captions and alignment from the column string. The view
    // applies widths and visibility itself.
    void SetColumns(QList<zel::zelColumnDesc> columns);
    const QList<zel::zelColumnDesc> &Columns() const { return m_columns; }
    int ColumnCount() const { return int(m_columns.size()); }
    // The column whose cell shows a row's tree text and its second image;
    // -1 for none. 0 by default.
    void SetTreeColumn(int column);
    int TreeColumn() const { return m_treeColumn; }

    // Shows the entries of store (empty, as the model's own store must be):
    // the records' store, so that every record's entry is its row.
    void SetStore(std::shared_ptr<zel::zelRecordStore> store);
    const std::shared_ptr<zel::zelRecordStore> &Store() const { return m_store; }
    // The row of entry (which must be the entry after the last row) under
    // parentHandle (0: at the top); 0 when parentHandle is not a row or
    // entry is not the next. treeText is shown in the tree column (text 0
    // when empty). imageIndex 0: no image.
    int AddEntryRow(int parentHandle, int entry, const QString &treeText = QString(),
                    int imageIndex = 0, bool enabled = true, bool sorted = false);
    // A new entry for the key of record (none: the empty key, which rows
    // may share) and the tab-joined texts, and its row (AddEntryRow).
    int AddRow(int parentHandle, const RecordPtr &record, const QString &texts,
               const QString &treeText = QString(), int imageIndex = 0, bool enabled = true,
               bool sorted = false);
    // Every row goes (one model reset), and with them the entries of the
    // store: records still held elsewhere keep a copy of their data.
    void Clear();

    // The row whose record key equals key exactly (letter case counts), as
    // a walk of the rows in display order (depth first) would find it; 0
    // when none. Constant time unless two rows share a key.
    int FindKey(const QString &key) const;
    // "" for a handle that is not a row.
    QString KeyOf(int handle) const;
    QString TextsOf(int handle) const;
    // What the cell shows: text `column` of the row, or the tree text in
    // the tree column.
    QString CellText(int handle, int column) const;
    bool IsRow(int handle) const { return handle >= 1 && handle <= m_rowCount; }

    int HandleOf(const QModelIndex &index) const;
    QModelIndex IndexOf(int handle, int column = 0) const;
    // All rows, at every depth.
    int RowCount() const { return m_rowCount; }
    int ChildCount(int parentHandle) const;
    // The child at 0-based position under parentHandle (0: top level); 0
    // when there is none.
    int ChildAt(int parentHandle, int position) const;
    int ParentOf(int handle) const;
    // 0 for a top-level row.
    int Depth(int handle) const;

    void SetImageProvider(ImageProvider provider);
    void SetImage(int handle, int imageIndex);
    int Image(int handle) const;
    // A disabled row can be neither selected nor chosen.
    void SetEnabled(int handle, bool enabled);
    bool IsEnabled(int handle) const;
    // Kept here so that it survives the reset at the end of an update; the
    // view follows ExpandRequested.
    void SetExpanded(int handle, bool expanded);
    bool IsExpanded(int handle) const;
    // A cell painted as a header: background colour (0x00BBGGRR) and bold.
    void SetCellPaint(int handle, int column, quint32 backColour, bool bold);

    // Nested. Adds inside an update tell the views nothing until the
    // outermost EndUpdate, which resets the model once if anything changed.
    void BeginUpdate();
    void EndUpdate();
    bool IsUpdating() const { return m_updating > 0; }

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    // A row's expansion is to be shown: after SetExpanded outside an
    // update, and for every expanded row after the reset that ends one.
    void ExpandRequested(const QModelIndex &index, bool expanded);

private:
    // What the model knows of the rows beside the store: nothing, after a
    // Clear or a new store.
    void forgetRows();
    // A parent's rows always read as a stable sort of the rows up to its
    // last sorted add, in the order they came, followed by the rows added
    // unsorted since. So the rows need to be known in order only as far as
    // the last sorted add, and a run of sorted adds needs one sort.
    using Kids = zel::zelRecordStore::Kids;
    using Row = zel::zelRecordStore::Entry;
    struct CellPaint
    {
        quint32 back = 0;
        bool bold = false;
    };

    const Row &row(int handle) const { return m_store->At(handle); }
    Row &row(int handle) { return m_store->At(handle); }
    Kids *kidsOf(int parentHandle) const;
    const std::vector<int> &children(int parentHandle) const; // sorted when pending
    int posOf(int handle) const;
    QStringView sortText(int handle) const;
    QStringView cell(int handle, int column) const;
    void sortKids(Kids &k, size_t upTo) const;
    void sortWithSignals(int parentHandle, Kids &k);
    void touch();
    void emitExpansions();
    void rowChanged(int handle);

    QList<zel::zelColumnDesc> m_columns;
    int m_treeColumn = 0;
    std::shared_ptr<zel::zelRecordStore> m_store;
    int m_rowCount = 0;
    int m_expandedRows = 0; // emitExpansions has nothing to do without them
    int m_disabledRows = 0;
    int m_parentRows = 0; // rows that have rows under them
    mutable Kids m_root;
    QHash<int, QString> m_treeTexts;
    QHash<quint64, CellPaint> m_paint;
    mutable std::vector<int> m_pending;
    ImageProvider m_images;
    int m_updating = 0;
    bool m_resetting = false;
};
