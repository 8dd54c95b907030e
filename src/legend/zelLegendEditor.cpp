#include "legend/zelLegendEditor.h"

#include "core/zelConvert.h"
#include "core/zelMissing.h"
#include "core/zelNumberFormat.h"
#include "core/zelTrail.h"
#include "legend/zelLegendModel_p.h"
#include "platform/zelPlatform.h"
#include "platform/zelVariantKind.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

namespace {

// The history a user can walk back; older edits are forgotten.
constexpr size_t kUndoDepth = 100;

} // namespace

QVariant zelLegendModel::data(const QModelIndex &index, int role) const
{
    const int row = index.row(), col = index.column();
    if (!index.isValid() || row >= rowCount() || col >= columnCount())
        return {};
    const zelLegendEditor::Column c = m_e->m_columns[size_t(col)];
    if (c == zelLegendEditor::Column::Style) {
        if (role == Qt::BackgroundRole)
            if (const auto colour = m_e->ItemColour(row))
                return QBrush(zel::ToQColor(*colour));
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return m_e->ItemText(row, c);
    if (role == Qt::TextAlignmentRole && c != zelLegendEditor::Column::Label &&
        c != zelLegendEditor::Column::Source)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

bool zelLegendModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    // An edit the grid commits while the control is hidden or going away (its
    // window closing takes the focus from the cell) is dropped: a refusal must
    // not show a message box then.
    if (role != Qt::EditRole || !index.isValid() || index.row() >= rowCount() || !m_e->isVisible())
        return false;
    m_e->EditCell(index.row(), index.column(), value.toString());
    return true;
}

Qt::ItemFlags zelLegendModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (m_e->ItemEditable(index.row(), m_e->m_columns[size_t(index.column())]))
        f |= Qt::ItemIsEditable;
    return f;
}

QVariant zelLegendModel::headerData(int section, Qt::Orientation o, int role) const
{
    if (o == Qt::Horizontal && role == Qt::DisplayRole)
        return captions.value(section);
    return QAbstractTableModel::headerData(section, o, role);
}

zelLegendEditor::zelLegendEditor(QWidget *parent)
    : QWidget(parent), m_grid(new QTableView(this)), m_model(new zelLegendModel(this))
{
    m_grid->setObjectName(QStringLiteral("extRanges"));
    m_grid->setModel(m_model);
    m_grid->verticalHeader()->hide();
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed |
                            QAbstractItemView::SelectedClicked);
    m_grid->verticalHeader()->setDefaultSectionSize(zel::TwipsToPixels(285));
    connect(m_grid, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex &i) { extRanges_DblClick(i.row(), i.column()); });

    auto *insert = new QPushButton(tr("Insert"), this);
    insert->setObjectName(QStringLiteral("cmdInsert"));
    auto *remove = new QPushButton(tr("Remove"), this);
    remove->setObjectName(QStringLiteral("cmdRemove"));
    m_cmdInsert = insert;
    m_cmdRemove = remove;
    connect(insert, &QPushButton::clicked, this, [this] {
        zel::Trail t(this, "cmdInsert_Click");
        t.Run([&] { Insert(); });
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        zel::Trail t(this, "cmdRemove_Click");
        t.Run([&] { Remove(); });
    });

    auto *outer = new QVBoxLayout(this);
    const int gap = zel::TwipsToPixels(60);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(gap);
    outer->addWidget(m_grid, 1);
    m_buttonRow = new QHBoxLayout;
    m_buttonRow->setSpacing(gap);
    m_buttonRow->addStretch(1);
    m_buttonRow->addWidget(insert);
    m_buttonRow->addWidget(remove);
    outer->addLayout(m_buttonRow);

    auto *undo = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), this);
    auto *redo = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), this);
    undo->setContext(Qt::WidgetWithChildrenShortcut);
    redo->setContext(Qt::WidgetWithChildrenShortcut);
    connect(undo, &QShortcut::activated, this, [this] { Undo(); });
    connect(redo, &QShortcut::activated, this, [this] { Redo(); });
}

zelLegendEditor::~zelLegendEditor()
{
    // The items are gone with the editor's own class: the grid, destroyed
    // after this, must not ask for them.
    m_model->Live = false;
}

void zelLegendEditor::SetDstScalar(bool v)
{
    LetThen("DstScalar", m_dstScalar, v, [this] { Refresh(); });
}

void zelLegendEditor::SetDstFormat(const QString &v)
{
    LetThen("DstFormat", m_dstFormat, v, [this] { Refresh(); });
}

void zelLegendEditor::SetShowValue(bool v)
{
    LetThen("ShowValue", m_showValue, v, [this] { ApplyColumnVisibility(); });
}

void zelLegendEditor::SetShowLabel(bool v)
{
    LetThen("ShowLabel", m_showLabel, v, [this] { ApplyColumnVisibility(); });
}

void zelLegendEditor::Refresh()
{
    zel::Trail t(this, "Refresh");
    t.Run([&] {
        if (Updating())
            return;
        m_model->BeginReset();
        m_model->EndReset();
    });
}

void zelLegendEditor::BeginUpdate()
{
    zel::Trail t(this, "BeginUpdate");
    t.Run([&] {
        if (m_updates++ == 0)
            m_model->BeginReset();
    });
}

void zelLegendEditor::EndUpdate()
{
    zel::Trail t(this, "EndUpdate");
    t.Run([&] {
        // An EndUpdate without its BeginUpdate changes nothing.
        if (m_updates > 0 && --m_updates == 0)
            m_model->EndReset();
    });
}

bool zelLegendEditor::Undo()
{
    bool done = false;
    zel::Trail t(this, "Undo");
    t.Run([&] { done = !m_undo.empty() && (Swap(m_undo, m_redo), true); });
    return done;
}

bool zelLegendEditor::Redo()
{
    bool done = false;
    zel::Trail t(this, "Redo");
    t.Run([&] { done = !m_redo.empty() && (Swap(m_redo, m_undo), true); });
    return done;
}

void zelLegendEditor::Swap(std::vector<std::any> &from, std::vector<std::any> &to)
{
    std::any now = SaveItems();
    std::any back = std::move(from.back());
    from.pop_back();
    RestoreItems(back);
    to.push_back(std::move(now));
    Refresh();
    emit Changed();
}

void zelLegendEditor::Edited(std::any before)
{
    m_undo.push_back(std::move(before));
    if (m_undo.size() > kUndoDepth)
        m_undo.erase(m_undo.begin());
    m_redo.clear();
    emit Changed();
}

void zelLegendEditor::HostChange()
{
    if (m_inUserEdit)
        return;
    m_undo.clear();
    m_redo.clear();
}

QString zelLegendEditor::CellText(int row, int column) const
{
    return m_model->data(m_model->index(row, column), Qt::DisplayRole).toString();
}

void zelLegendEditor::EditCell(int row, int column, const QString &text)
{
    zel::Trail t(this, "extRanges_AfterCellEdit");
    t.Run([&] {
        if (row < 0 || row >= GridRows() || column < 0 || size_t(column) >= m_columns.size())
            throw zelError(zelError::SubscriptOutOfRange);
        const Column c = m_columns[size_t(column)];
        if (!ItemEditable(row, c))
            return;
        UserEdit([&] { return AfterCellEdit(row, c, text); });
    });
}

void zelLegendEditor::extRanges_DblClick(int row, int column)
{
    zel::Trail t(this, "extRanges_DblClick");
    t.Run([&] {
        if (row < 0 || row >= GridRows() || column < 0 || size_t(column) >= m_columns.size() ||
            m_columns[size_t(column)] != Column::Style)
            return;
        const std::optional<quint32> old = ItemColour(row);
        if (!old)
            return;
        quint32 colour = *old;
        if (!zel::platform().ChooseColor(colour, this))
            return;
        UserEdit([&] {
            SetItemColour(row, colour);
            RowChanged(row);
            return true;
        });
    });
}

void zelLegendEditor::SetGridColumns(std::vector<Column> columns, const QStringList &captions)
{
    // While updating, the model is in a reset already that EndUpdate ends.
    if (!Updating())
        m_model->BeginReset();
    m_columns = std::move(columns);
    m_model->captions = captions;
    m_model->Live = true;
    if (!Updating())
        m_model->EndReset();
    ApplyColumnVisibility();
}

void zelLegendEditor::SetCaption(Column c, const QString &caption)
{
    for (size_t i = 0; i < m_columns.size(); ++i)
        if (m_columns[i] == c)
            m_model->captions[qsizetype(i)] = caption;
    m_model->HeaderChanged();
}

QString zelLegendEditor::Caption(Column c) const
{
    for (size_t i = 0; i < m_columns.size(); ++i)
        if (m_columns[i] == c)
            return m_model->captions.value(qsizetype(i));
    return {};
}

void zelLegendEditor::ApplyColumnVisibility()
{
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const Column c = m_columns[i];
        m_grid->setColumnHidden(int(i), (c == Column::Value && !m_showValue) ||
                                            (c == Column::Label && !m_showLabel));
        // The label takes the room left, or the style while it is hidden.
        const bool stretch = c == (m_showLabel ? Column::Label : Column::Style);
        m_grid->horizontalHeader()->setSectionResizeMode(
            int(i), stretch ? QHeaderView::Stretch : QHeaderView::Interactive);
    }
}

void zelLegendEditor::RowsInserted(int first, int count)
{
    if (!Updating() && count > 0)
        m_model->Inserted(first, count);
}

void zelLegendEditor::RowsRemoved(int first, int count)
{
    if (!Updating() && count > 0)
        m_model->Removed(first, count);
}

void zelLegendEditor::RowChanged(int row)
{
    if (!Updating() && row >= 0 && row < GridRows())
        m_model->RowChanged(row);
}

int zelLegendEditor::CurrentRow() const
{
    const QModelIndex i = m_grid->currentIndex();
    return i.isValid() && i.row() < GridRows() ? i.row() : -1;
}

void zelLegendEditor::SetCurrentRow(int row)
{
    if (row >= 0 && row < GridRows())
        m_grid->setCurrentIndex(m_model->index(row, 0));
}

QString zelLegendEditor::ValueText(const QVariant &value) const
{
    if (!value.isValid() || value.isNull() || zel::IsMissing(value))
        return {};
    if (m_dstScalar) {
        bool ok = zel::IsNumber(value);
        double d = value.toDouble();
        if (!ok && value.metaType().id() == QMetaType::QString)
            d = value.toString().trimmed().toDouble(&ok);
        if (ok)
            return zel::FormatNumber(d, m_dstFormat);
    }
    return value.toString();
}
