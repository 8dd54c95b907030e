#include "grid/zelGridModel_p.h"

#include "grid/zelGridList_p.h"

#include "core/zelConvert.h"
#include "platform/zelPlatform.h"

#include <QBrush>
#include <QLocale>

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

zelGridModel::zelGridModel(const zelGridListPrivate &d, QObject *parent)
    : QAbstractTableModel(parent), d(d)
{}

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
    const auto &columns = d.columns;
    if (!columns)
        return false;
    const auto col = columns->Items().ItemAt(column + 1);
    return col && col->AllowEdit();
}

bool zelGridModel::IsCheckColumn(int column) const
{
    return column == 0 && d.checkBoxes && IsBoolean(0);
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
    if (r < 0 || r >= m_rows || c < 0 || c >= int(m_formats.size()) || !d.items)
        return {};
    // Rows past the end of Items (removed this turn) show empty.
    const zelGridRow *row = d.items->Items().ItemAt(r + 1).get();
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
            !(row->Selected() && d.multiSelect))
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
    if (!index.isValid() || !d.items || index.row() >= d.items->Count())
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
        index.row() >= d.items->Count())
        return false;
    emit CellEdited(index.row() + 1, index.column(), value.toString());
    return true;
}

void zelGridModel::ResetColumns(std::vector<zelGridColumnFormat> formats)
{
    beginResetModel();
    m_formats = std::move(formats);
    m_hasColour = false;
    for (const auto &s : m_formats)
        m_hasColour = m_hasColour || s.DataType == zelGridType::Colour;
    m_rows = d.items ? d.items->Count() : 0;
    endResetModel();
}

void zelGridModel::ResetRows()
{
    beginResetModel();
    m_rows = d.items ? d.items->Count() : 0;
    endResetModel();
}

void zelGridModel::Sync()
{
    const int count = d.items ? d.items->Count() : 0;
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
