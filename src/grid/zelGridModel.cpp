#include "grid/zelGridList_p.h"

#include "core/zelConvert.h"
#include "platform/zelPlatform.h"

#include <QApplication>
#include <QBrush>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpressionValidator>

namespace {

// The pale yellow of editable cells (0x00BBGGRR).
constexpr quint32 EditableBackColour = 0xC0FFFF;

Qt::Alignment cellAlignment(ZEL_Controls_ColumnAlign a, bool number)
{
    switch (a) {
    case ZEL_ColumnAlignLeft:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case ZEL_ColumnAlignCenter:
        return Qt::AlignCenter;
    case ZEL_ColumnAlignRight:
        return Qt::AlignRight | Qt::AlignVCenter;
    default:
        // The grid's own: numbers to the right, text to the left.
        return (number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    }
}

bool readsAsNumber(QStringView text, double *value = nullptr)
{
    bool ok = false;
    const double d = QLocale::c().toDouble(text.trimmed(), &ok);
    if (ok && value)
        *value = d;
    return ok;
}

} // namespace

// ---------------------------------------------------------------- model

zelGridModel::zelGridModel(zelGridList *owner) : QAbstractTableModel(owner), m_owner(owner) {}

int zelGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int zelGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_formats.size());
}

qint32 zelGridModel::DataType(int column) const
{
    return column >= 0 && column < int(m_formats.size()) ? m_formats[size_t(column)].DataType : 0;
}

bool zelGridModel::AllowEdit(int column) const
{
    const auto &columns = m_owner->m_columns;
    if (!columns)
        return false;
    const auto col = columns->Items().ItemAt(column + 1);
    return col && col->AllowEdit();
}

bool zelGridModel::IsCheckColumn(int column) const
{
    return column == 0 && m_owner->m_checkBoxes && IsBoolean(0);
}

bool zelGridModel::TextIsTrue(QStringView text)
{
    const QStringView t = text.trimmed();
    if (t.isEmpty() || t.compare(u"false", Qt::CaseInsensitive) == 0)
        return false;
    if (t.compare(u"true", Qt::CaseInsensitive) == 0)
        return true;
    double d = 0;
    return readsAsNumber(t, &d) && d != 0;
}

QVariant zelGridModel::data(const QModelIndex &index, int role) const
{
    const int r = index.row();
    const int c = index.column();
    if (r < 0 || r >= m_rows || c < 0 || c >= int(m_formats.size()) || !m_owner->m_items)
        return {};
    // Rows past the end of Items (removed this turn) show empty.
    const zelGridRow *row = m_owner->m_items->Items().ItemAt(r + 1).get();
    if (!row)
        return {};
    const zelGridColumnFormat &format = m_formats[size_t(c)];
    switch (role) {
    case Qt::DisplayRole: {
        if (format.DataType == zelGridType::Boolean || row->CellColour(c, nullptr))
            return QString();
        const QStringView text = row->Cell(c);
        double d = 0;
        if (format.Decimals > 0 && zelGridType::IsNumeric(format.DataType) &&
            readsAsNumber(text, &d))
            return zel::FormatFixed(d, format.Decimals);
        return text.toString();
    }
    case Qt::EditRole:
        return row->Cell(c).toString();
    case Qt::CheckStateRole:
        if (format.DataType != zelGridType::Boolean)
            return {};
        return (IsCheckColumn(c) ? row->Checked() : TextIsTrue(row->Cell(c))) ? Qt::Checked
                                                                              : Qt::Unchecked;
    case Qt::BackgroundRole: {
        quint32 colour = 0;
        if (row->CellColour(c, &colour))
            return QBrush(zel::ToQColor(colour));
        if (row->RowColor() != zel::SysWindowBackground)
            return QBrush(zel::ToQColor(row->RowColor()));
        if (format.DataType != zelGridType::Colour && AllowEdit(c) &&
            !(row->Selected() && m_owner->m_multiSelect))
            return QBrush(zel::ToQColor(EditableBackColour));
        return {};
    }
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(
            cellAlignment(format.Alignment, format.Alignment == 0 && readsAsNumber(row->Cell(c))));
    default:
        return {};
    }
}

QVariant zelGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= int(m_formats.size()))
        return QAbstractTableModel::headerData(section, orientation, role);
    const zelGridColumnFormat &format = m_formats[size_t(section)];
    if (role == Qt::DisplayRole)
        return format.Caption;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(cellAlignment(format.Alignment, false));
    return {};
}

Qt::ItemFlags zelGridModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || !m_owner->m_items || index.row() >= m_owner->m_items->Count())
        return Qt::NoItemFlags;
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const qint32 type = DataType(index.column());
    if (type == zelGridType::Boolean)
        f |= Qt::ItemIsUserCheckable;
    else if (type != zelGridType::Colour && AllowEdit(index.column()))
        f |= Qt::ItemIsEditable;
    return f;
}

bool zelGridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || index.row() >= m_rows ||
        index.row() >= m_owner->m_items->Count())
        return false;
    m_owner->vfgItems_AfterEdit(index.row() + 1, index.column(), value.toString());
    return true;
}

void zelGridModel::ResetColumns(std::vector<zelGridColumnFormat> formats)
{
    beginResetModel();
    m_formats = std::move(formats);
    m_hasColour = false;
    for (const auto &s : m_formats)
        m_hasColour = m_hasColour || s.DataType == zelGridType::Colour;
    m_rows = m_owner->m_items ? m_owner->m_items->Count() : 0;
    endResetModel();
}

void zelGridModel::ResetRows()
{
    beginResetModel();
    m_rows = m_owner->m_items ? m_owner->m_items->Count() : 0;
    endResetModel();
}

void zelGridModel::Sync()
{
    const int count = m_owner->m_items ? m_owner->m_items->Count() : 0;
    if (count > m_rows) {
        beginInsertRows(QModelIndex(), m_rows, count - 1);
        m_rows = count;
        endInsertRows();
    } else if (count < m_rows) {
        beginRemoveRows(QModelIndex(), count, m_rows - 1);
        m_rows = count;
        endRemoveRows();
    }
}

void zelGridModel::ScheduleSync()
{
    if (m_syncQueued)
        return;
    m_syncQueued = true;
    // Painting is posted at a lower priority: the views know the new count
    // before they draw.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_syncQueued = false;
            Sync();
        },
        Qt::QueuedConnection);
}

void zelGridModel::RowsChanged(int first, int last)
{
    first = std::max(first, 1);
    last = std::min(last, m_rows);
    if (first > last || m_formats.empty())
        return;
    emit dataChanged(index(first - 1, 0), index(last - 1, int(m_formats.size()) - 1));
}

// ---------------------------------------------------------------- view

zelGridView::zelGridView(zelGridList *owner, zelGridModel *model)
    : QTableView(owner), m_owner(owner), m_model(model)
{}

void zelGridView::CloseEditor()
{
    // An editor handing over its text closes by itself once that is done.
    if (state() == EditingState && m_editIndex.isValid() && !m_owner->m_committing)
        closePersistentEditor(m_editIndex);
    m_editIndex = QPersistentModelIndex();
}

void zelGridView::EditCurrent()
{
    const QModelIndex current = currentIndex();
    if (current.isValid() && state() != EditingState)
        edit(current, AllEditTriggers, nullptr);
}

bool zelGridView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    if (!index.isValid() || index.model() != m_model)
        return QTableView::edit(index, trigger, event);
    const int column = index.column();
    const int row = index.row() + 1;

    if (m_model->IsBoolean(column)) {
        // A check box changes with a click on its cell or the space bar.
        bool toggle = false;
        if (event && event->type() == QEvent::MouseButtonRelease) {
            const auto *me = static_cast<const QMouseEvent *>(event);
            toggle = me->button() == Qt::LeftButton &&
                     visualRect(index).contains(me->position().toPoint());
        } else if (event && event->type() == QEvent::KeyPress) {
            toggle = static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Space;
        }
        if (!toggle)
            return false;
        m_owner->vfgItems_ToggleCheck(row, column);
        return true;
    }

    if (state() == EditingState)
        return QTableView::edit(index, trigger, event);
    const bool starts = trigger == AllEditTriggers || (editTriggers() & trigger);
    if (!starts)
        return QTableView::edit(index, trigger, event);
    if (m_model->IsColour(column)) {
        m_owner->vfgItems_ChooseColour(row, column);
        return true;
    }
    if (!m_owner->vfgItems_BeforeEdit(row, column))
        return false;
    const bool opened = QTableView::edit(index, trigger, event);
    if (opened)
        m_editIndex = index;
    else
        m_owner->vfgItems_EditCancelled();
    return opened;
}

void zelGridView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    QTableView::closeEditor(editor, hint);
    m_editIndex = QPersistentModelIndex();
    m_owner->vfgItems_EditCancelled();
}

void zelGridView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex current = currentIndex();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        state() != EditingState && current.isValid() && !m_model->IsBoolean(current.column())) {
        // Enter starts editing the current cell, as F2 does.
        if (edit(current, EditKeyPressed, event)) {
            event->accept();
            return;
        }
    }
    QTableView::keyPressEvent(event);
}

void zelGridView::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    viewport()->update();
    try {
        m_owner->UserControl_EnterFocus();
    } catch (...) {
        // Raised for the host; a focus change has no host to take it.
    }
}

void zelGridView::focusOutEvent(QFocusEvent *event)
{
    QTableView::focusOutEvent(event);
    viewport()->update();
}

void zelGridView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
    m_owner->vfgItems_DblClick();
}

void zelGridView::afterInput(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        m_owner->FlushSelectionEvents();
        break;
    default:
        break;
    }
}

bool zelGridView::event(QEvent *event)
{
    const bool result = QTableView::event(event);
    afterInput(event);
    return result;
}

bool zelGridView::viewportEvent(QEvent *event)
{
    const bool result = QTableView::viewportEvent(event);
    afterInput(event);
    return result;
}

// ---------------------------------------------------------------- delegate

zelGridDelegate::zelGridDelegate(zelGridList *owner, zelGridModel *model, QObject *parent)
    : QStyledItemDelegate(parent), m_owner(owner), m_model(model)
{}

QWidget *zelGridDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    const int column = index.column();
    if (column < 0 || column >= int(m_model->Formats().size()))
        return QStyledItemDelegate::createEditor(parent, option, index);
    const zelGridColumnFormat &format = m_model->Formats()[size_t(column)];
    if (!format.Combo.isEmpty()) {
        auto *combo = new QComboBox(parent);
        combo->setObjectName(QStringLiteral("cboEdit"));
        combo->setEditable(format.ComboEditable);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setMaxVisibleItems(20);
        combo->addItems(format.Combo);
        return combo;
    }
    auto *line = new QLineEdit(parent);
    line->setObjectName(QStringLiteral("txtEdit"));
    line->setFrame(false);
    if (zelGridType::IsNumeric(format.DataType)) {
        const bool whole = format.DataType == zelGridType::Integer ||
                           format.DataType == zelGridType::Long || format.Decimals == 0;
        const QString pattern =
            whole ? QStringLiteral("-?\\d*")
                  : QStringLiteral("-?\\d*(\\.\\d{0,%1})?").arg(std::max(format.Decimals, 1));
        line->setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), line));
    }
    return line;
}

void zelGridDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        const int i = combo->findText(text);
        if (i >= 0)
            combo->setCurrentIndex(i);
        else if (combo->isEditable())
            combo->setEditText(text);
        return;
    }
    if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->setText(text);
        line->selectAll();
        return;
    }
    QStyledItemDelegate::setEditorData(editor, index);
}

void zelGridDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                   const QModelIndex &index) const
{
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        model->setData(index, combo->currentText(), Qt::EditRole);
        return;
    }
    if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        model->setData(index, line->text(), Qt::EditRole);
        return;
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}

void zelGridDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!(option->state & QStyle::State_Selected))
        return;
    bool highlight = true;
    switch (m_owner->m_highlight) {
    case ZEL_Highlight_Never:
        highlight = false;
        break;
    case ZEL_Highlight_Always:
        option->state |= QStyle::State_Active;
        break;
    default: {
        const QWidget *view = m_owner->m_vfgItems;
        const QWidget *focus = QApplication::focusWidget();
        highlight = view && focus && (focus == view || view->isAncestorOf(focus));
        break;
    }
    }
    const int col = m_owner->m_selectionCol;
    if (highlight && col >= 0 && col < int(m_model->Formats().size()) && index.column() != col)
        highlight = false;
    if (!highlight)
        option->state &= ~QStyle::State_Selected;
}

void zelGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    if (!m_model->IsBoolean(index.column())) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    // Check boxes stand in the middle of their cells.
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    const Qt::CheckState state = opt.checkState;
    opt.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    opt.text.clear();
    const QWidget *widget = opt.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

    QStyleOptionViewItem check = opt;
    const int w = style->pixelMetric(QStyle::PM_IndicatorWidth, &opt, widget);
    const int h = style->pixelMetric(QStyle::PM_IndicatorHeight, &opt, widget);
    check.rect = QRect(opt.rect.center().x() - w / 2, opt.rect.center().y() - h / 2, w, h);
    check.state &= ~QStyle::State_HasFocus;
    check.state |= state == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &check, painter, widget);
}
