#include "lists/zelTreeList.h"

#include "core/zelKeys.h"
#include "core/zelTrail.h"
#include "lists/zelColumnString.h"
#include "lists/zelImageList.h"
#include "lists/zelRecordModel.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPalette>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTreeView>

ZEL_REGISTER_PROGID(zelTreeList);

namespace {

constexpr int RowHeight = 16;                  // pixels, whatever the font
constexpr quint32 HeaderCellColour = 0xC0FFC0; // light green, 0x00BBGGRR

class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return {QStyledItemDelegate::sizeHint(option, index).width(), RowHeight};
    }
};

// A tree that can put off its layout: rows expanded or collapsed while the
// layout is pending cost a set insertion each, and the tree is laid out once
// when it is next shown, not once per row.
class TreeView : public QTreeView
{
public:
    using QTreeView::QTreeView;
    void DeferLayout() { scheduleDelayedItemsLayout(); }
};

} // namespace

// What the shared selection rules ask of the tree.
class zelTreeList::Selection : public zelRecordSelection::View
{
public:
    explicit Selection(zelTreeList &t) : m(t) {}

    qint32 FindRow(const QString &key) const override { return m.m_model->FindKey(key); }
    QList<qint32> SelectedRows() const override
    {
        QList<qint32> rows;
        for (const QModelIndex &i : m.m_extGrid->selectionModel()->selectedRows())
            rows.append(m.m_model->HandleOf(i));
        return rows;
    }
    void SelectRow(qint32 row) override
    {
        const QModelIndex i = m.m_model->IndexOf(row);
        m.m_extGrid->scrollTo(i);
        // A disabled row is shown but not chosen: nothing changes, no event.
        if (m.m_model->IsEnabled(row))
            m.m_extGrid->selectionModel()->setCurrentIndex(i, QItemSelectionModel::ClearAndSelect |
                                                                  QItemSelectionModel::Rows);
    }
    void UnselectRow(qint32 row) override
    {
        m.m_extGrid->selectionModel()->select(
            m.m_model->IndexOf(row), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    }
    std::shared_ptr<zelComboRecord> RecordOfRow(qint32 row) const override
    {
        return m.m_records->Store()->Object(row);
    }
    void RaiseChanged(bool bUserClick) override { emit m.Changed(bUserClick); }

private:
    zelTreeList &m;
};

zelTreeList::zelTreeList(QWidget *parent)
    : QWidget(parent), m_extGrid(new TreeView(this)), m_model(new zelRecordModel(this)),
      m_images(new zel::zelImageList(this))
{
    zel::Trail t(this, "UserControl_Initialize");
    t.Run([&] {
        t.Step = QStringLiteral("Making Records");
        m_records = std::make_shared<zelComboRecords>();
        m_model->SetStore(m_records->Store());
        m_view = std::make_unique<Selection>(*this);
        m_selection = std::make_unique<zelRecordSelection>(*m_view, true);

        t.Step = QStringLiteral("Creating Images");
        m_model->SetImageProvider([images = m_images](int i) { return images->Icon(i); });
        m_extGrid->setObjectName(QStringLiteral("extGrid"));
        m_extGrid->setModel(m_model);
        m_extGrid->setItemDelegate(new RowDelegate(m_extGrid));
        m_extGrid->setUniformRowHeights(true);
        m_extGrid->setIconSize(QSize(16, 16));
        m_extGrid->setSelectionMode(QAbstractItemView::SingleSelection);
        m_extGrid->setSelectionBehavior(QAbstractItemView::SelectRows);
        m_extGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
        m_extGrid->setAllColumnsShowFocus(true);
        m_extGrid->header()->setStretchLastSection(false);
        // A column is as narrow as its column string says, not the style's minimum.
        m_extGrid->header()->setMinimumSectionSize(1);
        m_extGrid->installEventFilter(this);
        setFocusProxy(m_extGrid);
        connect(m_images, &zel::zelImageList::ImagesChanged, m_extGrid->viewport(),
                qOverload<>(&QWidget::update));
        // Qt also reports a change of the current row alone as an empty
        // change of selection; only a real change is one for the host.
        connect(m_extGrid->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                [this](const QItemSelection &on, const QItemSelection &off) {
                    if (!on.isEmpty() || !off.isEmpty())
                        extGrid_SelectionChanged();
                });
        // The model keeps each row's expansion, so that it outlives a reset;
        // the tree shows it, and what the user opens or closes goes back.
        connect(m_model, &zelRecordModel::ExpandRequested, this,
                [this](const QModelIndex &i, bool expanded) {
                    const QScopedValueRollback<bool> guard(m_syncing, true);
                    m_extGrid->setExpanded(i, expanded);
                });
        auto userExpands = [this](bool expanded) {
            return [this, expanded](const QModelIndex &i) {
                if (!m_syncing)
                    m_model->SetExpanded(m_model->HandleOf(i), expanded);
            };
        };
        connect(m_extGrid, &QTreeView::expanded, this, userExpands(true));
        connect(m_extGrid, &QTreeView::collapsed, this, userExpands(false));

        t.Step = QStringLiteral("Enabling");
        applyEnabled();
    });
}

zelTreeList::~zelTreeList()
{
    // The tree and the model go before the members their signals reach.
    m_model->disconnect(this);
    delete m_extGrid;
}

const zel::zelPropertyTable &zelTreeList::Properties() const
{
    using T = zelTreeList;
    using zel::Prop;
    // In the order saved; ReadProperties reads its own order.
    static const zel::zelPropertyTable table({
        Prop("Sorted", &T::Sorted, &T::SetSorted).Persist().Default(false),
        // Saved for older hosts, never read back: a load always enables.
        // The setter does not mark the store.
        Prop("Enabled", &T::Enabled, &T::SetEnabled)
            .Persist()
            .Default(true)
            .With(zel::Init | zel::NoMark | zel::WriteOnly),
        // Applied by the load itself once every key is read.
        Prop("Columns", &T::Columns, &T::SetColumns)
            .Persist()
            .Default(QString())
            .With(zel::StoreOnLoad),
        Prop("HeaderVisible", &T::HeaderVisible, &T::SetHeaderVisible).Persist().Default(true),
        // Expands again on every write, as the user may have opened rows since.
        Prop("ExpandLevel", &T::ExpandLevel, &T::SetExpandLevel)
            .Default(qint32(0))
            .With(zel::NoMark | zel::Always),
    });
    return table;
}

void zelTreeList::ReadProperties(zelPropertyBag &bag)
{
    static const std::vector<zel::zelPropertyDecl> loadOrder = [](const zel::zelPropertyTable &t) {
        std::vector<zel::zelPropertyDecl> order;
        for (const char *name : {"Sorted", "HeaderVisible", "Columns"})
            order.push_back(*t.Find(QString::fromLatin1(name)));
        return order;
    }(Properties());
    {
        const QScopedValueRollback<bool> loading(m_loading, true);
        SetEnabled(true);
        ReadEntries(bag, loadOrder);
    }
    zel::Trail t(this, "UserControl_ReadProperties");
    t.Step = QStringLiteral("Applying Columns");
    t.Run([&] {
        if (columnsLive())
            applyColumns(m_columns);
    });
}

bool zelTreeList::columnsLive() const
{
    return zel::UserMode(this) && !m_loading;
}

void zelTreeList::SetEnabled(bool v)
{
    LetThen("Enabled", m_enabled, v, [this] { applyEnabled(); });
}

void zelTreeList::applyEnabled()
{
    QPalette p = m_extGrid->palette();
    p.setColor(QPalette::Base,
               zel::ToQColor(m_enabled ? zel::SysWindowBackground : zel::SysButtonFace));
    m_extGrid->setPalette(p);
    QWidget::setEnabled(m_enabled);
}

void zelTreeList::SetSorted(bool v)
{
    Let("Sorted", m_sorted, v);
}

void zelTreeList::SetColumns(const QString &v)
{
    LetThen("Columns", m_columns, v, [this] {
        if (columnsLive())
            applyColumns(m_columns);
    });
}

void zelTreeList::applyColumns(const QString &colText)
{
    flush();
    zel::zelColumnParseIssues issues;
    QList<zel::zelColumnDesc> columns = zel::ParseColumns(colText, zel::zelColumnDialect::TreeList,
                                                          zel::platform().TwipsPerPixel(), &issues);
    zel::zelColumnDesc hidden;
    hidden.caption = QStringLiteral("Hidden");
    hidden.visible = zel::zelColumnDesc::Hidden;
    hidden.widthPixels = width();
    columns.append(hidden);

    QHeaderView *header = m_extGrid->header();
    const bool rebuild = columns.size() != m_model->ColumnCount();
    if (rebuild && m_records->Count() > 0)
        Clear();
    m_model->SetColumns(columns);
    for (int i = 0; i < int(columns.size()); ++i) {
        const zel::zelColumnDesc &c = columns.at(i);
        if (c.widthPixels > 0)
            header->resizeSection(i, c.widthPixels);
        else if (rebuild)
            header->resizeSection(i, header->defaultSectionSize());
        m_extGrid->setColumnHidden(i, c.visible == zel::zelColumnDesc::Hidden);
    }
    applyHeader();

    if (issues.overflowColumn >= 0)
        throw zelError(
            zelError::Overflow, QString(),
            QStringLiteral("Column %1: the width is out of range").arg(issues.overflowColumn));
    if (issues.truncated)
        throw zelError(
            zelError::InvalidPropertyValue, QString(),
            QStringLiteral("More than %1 columns: the rest are dropped").arg(zel::zelMaxColumns));
}

void zelTreeList::SetHeaderVisible(bool v)
{
    LetThen("HeaderVisible", m_headerVisible, v, [this] { applyHeader(); });
}

void zelTreeList::applyHeader()
{
    m_extGrid->setHeaderHidden(
        !zel::TreeListHeaderVisible(m_model->ColumnCount(), m_headerVisible));
}

void zelTreeList::SetExpandLevel(qint32 v)
{
    flush();
    LetThen("ExpandLevel", m_expandLevel, v, [this] {
        static_cast<TreeView *>(m_extGrid)->DeferLayout();
        // Record by record, each on its row: a record's entry is its row.
        const zel::zelRecordStore &store = *m_records->Store();
        for (int row = 1; row <= m_model->RowCount(); ++row) {
            const qint32 level = store.At(row).level;
            // Only rows that change reach the tree: most rows of a large
            // tree are closed and stay closed.
            if (level <= m_expandLevel && m_model->IsExpanded(row) != (level < m_expandLevel))
                m_model->SetExpanded(row, level < m_expandLevel);
        }
    });
}

std::shared_ptr<zelComboRecord> zelTreeList::SelectedRecord() const
{
    return m_selection->SelectedRecord();
}

QString zelTreeList::SelectedKey() const
{
    const auto record = SelectedRecord();
    return record ? record->Key() : QString();
}

zelComboRecordRef zelTreeList::AddItem(const QString &sParentKey, const QString &sKey,
                                       const QString &sData, const QString &sText,
                                       const QVariant &oTag, const QVariant &vImageKey,
                                       bool bEnabled, bool bExpandParent)
{
    zelComboRecordRef result;
    // A literal name, and the step marker written out only when a step
    // fails: a million adds compose neither.
    zel::Trail t(QStringLiteral("zelTreeList.AddItem"));
    const char *step = "Splitting";
    t.Run([&] {
        try {
            if (sData.isEmpty())
                return;
            m_records->Store()->Expect(sKey);
            if (m_model->ColumnCount() == 0)
                applyColumns(QString());
            if (sData.count(QLatin1Char('\t')) + 1 > m_model->ColumnCount() - 1)
                return;

            step = "Adding Record";
            const int entry = m_records->CreateEntry(sKey, sData, oTag, sParentKey);
            if (!entry)
                return;
            zel::zelRecordStore &store = *m_records->Store();
            const int parent = store.At(entry).parent;
            store.At(entry).level = parent ? store.At(parent).level + 1 : 0;
            result = zelComboRecordRef(m_records->Store(), entry);

            step = "Adding Item";
            // The parent row is found by the key as given, letter case and
            // all: the parent record's own row when its key is the same.
            const int parentRow = parent && store.At(parent).key == sParentKey ? parent : 0;
            beginBatch();
            const int row = m_model->AddEntryRow(
                parentRow, entry, sText, m_images->ImageIndex(vImageKey), bEnabled, m_sorted);
            if (row != entry)
                throw zelError(zelError::InvalidProcedureCall, QString(),
                               QStringLiteral("The tree refused the row"));
            if (parentRow != 0)
                m_model->SetExpanded(parentRow, bExpandParent);
            step = "Finished";
        } catch (...) {
            t.Step = QString::fromLatin1(step);
            throw;
        }
    });
    m_selection->ItemAdded();
    return result;
}

void zelTreeList::beginBatch()
{
    // Rows of a fill reach the tree at once when the host returns to the
    // event loop or asks for anything else, as one reset. Only while no row
    // is selected and the tree shows nothing the reset could move.
    if (m_batching || m_model->IsUpdating() || m_selection->LastRow() != 0 ||
        (m_model->RowCount() > 0 && m_extGrid->isVisible()))
        return;
    m_batching = true;
    m_model->BeginUpdate();
    QMetaObject::invokeMethod(
        this, [this] { flush(); }, Qt::QueuedConnection);
}

void zelTreeList::flush() const
{
    if (!m_batching)
        return;
    m_batching = false;
    m_model->EndUpdate();
}

void zelTreeList::Clear()
{
    flush();
    zel::Trail t(this, "Clear");
    t.Run([&] {
        m_selection->Clear([this] {
            // The records' entries are the rows: both go here.
            if (m_model->RowCount() > 0)
                m_model->Clear();
            m_records->ClearRecords();
        });
    });
}

bool zelTreeList::SelectItem(const QString &sKey)
{
    flush();
    bool found = false;
    zel::Trail t(this, "SelectItem");
    t.Run([&] { found = m_selection->SelectItem(sKey); });
    return found;
}

void zelTreeList::extGrid_SelectionChanged()
{
    flush();
    zel::Trail t(this, "cboValue_SelectionChanged");
    t.Run([&] { m_selection->SelectionChanged(); });
}

bool zelTreeList::ExpandItem(const QString &sKey, bool bExpanded)
{
    flush();
    bool found = false;
    zel::Trail t(this, "ExpandItem");
    t.Run([&] {
        const int row = m_model->FindKey(sKey);
        found = row != 0;
        if (found)
            m_model->SetExpanded(row, bExpanded);
    });
    return found;
}

bool zelTreeList::PaintHeaderCells(qint32 lRow, qint32 lStartCol, qint32 lEndCol)
{
    flush();
    bool painted = false;
    zel::Trail t(this, "PaintHeaderCells");
    t.Run([&] {
        const qint64 row = lRow == -1 ? m_model->RowCount() : qint64(lRow) + 1;
        const int first = lStartCol == -1 ? 0 : lStartCol;
        const int last = lEndCol == -1 ? m_model->ColumnCount() - 1 : lEndCol;
        if (row < 1 || row > m_model->RowCount() || first < 0 || last >= m_model->ColumnCount() ||
            first > last)
            throw zelError(zelError::SubscriptOutOfRange, QString(),
                           QStringLiteral("No row %1 with columns %2 to %3")
                               .arg(lRow)
                               .arg(lStartCol)
                               .arg(lEndCol));
        for (int c = first; c <= last; ++c)
            m_model->SetCellPaint(int(row), c, HeaderCellColour, true);
        painted = true;
    });
    return painted;
}

void zelTreeList::ClearImages()
{
    zel::Trail t(this, "ClearImages");
    t.Run([&] { m_images->ClearImages(); });
}

void zelTreeList::ReplaceImage(const QString &sKey, const QVariant &lHandle)
{
    zel::Trail t(this, "ReplaceImage");
    t.Run([&] { m_images->ReplaceImage(sKey, lHandle); });
}

bool zelTreeList::UpdateImage(const QString &sKey, const QVariant &vImageKey)
{
    flush();
    bool found = false;
    zel::Trail t(this, "UpdateImage");
    t.Run([&] {
        const int row = m_model->FindKey(sKey);
        found = row != 0;
        if (found)
            m_model->SetImage(row, m_images->ImageIndex(vImageKey));
    });
    return found;
}

void zelTreeList::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] {
        m_extGrid->setGeometry(rect());
        // The hidden last column is as wide as the control.
        if (m_model->ColumnCount() > 0)
            m_extGrid->header()->resizeSection(m_model->ColumnCount() - 1, width());
    });
}

bool zelTreeList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_extGrid || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    bool swallowed = false;
    zel::Trail t(this, "cboValue_KeyPress");
    t.Run([&] {
        if (m_enabled && zel::KeyAscii(static_cast<QKeyEvent *>(event)) == 13) {
            zel::platform().SendTab(m_extGrid);
            swallowed = true;
        }
    });
    return swallowed || QWidget::eventFilter(watched, event);
}
