#include "lists/zelRecordModel.h"

#include "platform/zelPlatform.h"

#include <QBrush>
#include <QFont>

#include <algorithm>
#include <limits>

namespace {

// As a.compare(b, Qt::CaseInsensitive) < 0, which folds every character
// through the Unicode tables: ASCII, which most captions are, is folded here,
// and the first other difference goes to the tables.
bool lessCaption(QStringView a, QStringView b)
{
    const qsizetype n = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t x = a[i].unicode();
        const char16_t y = b[i].unicode();
        if (x == y)
            continue;
        if (x < 128 && y < 128) {
            const char16_t fx = (x >= 'A' && x <= 'Z') ? x + 32 : x;
            const char16_t fy = (y >= 'A' && y <= 'Z') ? y + 32 : y;
            if (fx != fy)
                return fx < fy;
            continue;
        }
        // A surrogate pair is folded whole.
        const qsizetype from = i > 0 && QChar::isHighSurrogate(a[i - 1].unicode()) ? i - 1 : i;
        return a.mid(from).compare(b.mid(from), Qt::CaseInsensitive) < 0;
    }
    return a.size() < b.size();
}

Qt::Alignment alignmentOf(int a)
{
    switch (a) {
    case 0:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case 2:
        return Qt::AlignRight | Qt::AlignVCenter;
    default:
        return Qt::AlignCenter;
    }
}

const std::vector<int> noChildren;

} // namespace

zelRecordModel::zelRecordModel(QObject *parent)
    : QAbstractItemModel(parent), m_store(std::make_shared<zel::zelRecordStore>())
{}

void zelRecordModel::SetStore(std::shared_ptr<zel::zelRecordStore> store)
{
    if (!store || store == m_store)
        return;
    beginResetModel();
    m_store = std::move(store);
    forgetRows();
    endResetModel();
}

zelRecordModel::~zelRecordModel() = default;

void zelRecordModel::forgetRows()
{
    m_rowCount = 0;
    m_expandedRows = 0;
    m_disabledRows = 0;
    m_parentRows = 0;
    m_root = Kids();
    m_treeTexts.clear();
    m_paint.clear();
    m_pending.clear();
}

void zelRecordModel::touch()
{
    if (m_updating > 0 && !m_resetting) {
        beginResetModel();
        m_resetting = true;
    }
}

void zelRecordModel::SetColumns(QList<zel::zelColumnDesc> columns)
{
    if (m_updating > 0 || columns.size() != m_columns.size()) {
        if (m_updating == 0)
            beginResetModel();
        touch();
        m_columns = std::move(columns);
        if (m_updating == 0)
            endResetModel();
        return;
    }
    emit layoutAboutToBeChanged();
    m_columns = std::move(columns);
    emit layoutChanged();
    if (!m_columns.isEmpty())
        emit headerDataChanged(Qt::Horizontal, 0, int(m_columns.size()) - 1);
}

void zelRecordModel::SetTreeColumn(int column)
{
    if (column == m_treeColumn)
        return;
    touch();
    m_treeColumn = column;
    if (m_updating == 0 && m_rowCount > 0) {
        emit layoutAboutToBeChanged();
        emit layoutChanged();
    }
}

zelRecordModel::Kids *zelRecordModel::kidsOf(int parentHandle) const
{
    if (parentHandle == 0)
        return &m_root;
    // A flat list's rows have none, and a view asks each of them.
    if (m_parentRows == 0)
        return nullptr;
    return IsRow(parentHandle) ? row(parentHandle).kids.get() : nullptr;
}

void zelRecordModel::sortKids(Kids &k, size_t upTo) const
{
    // The rows already in order stay; the others go in behind their equals,
    // as a stable sort of all would put them: one by one when they are few,
    // else sorted on their own and merged in.
    const size_t first = k.sortedLen;
    if (upTo > first) {
        auto &hs = k.handles;
        const auto less = [this](int a, int b) { return lessCaption(sortText(a), sortText(b)); };
        const size_t tail = upTo - first;
        if (tail * 32 < first) {
            for (size_t i = first; i < upTo; ++i) {
                const int h = hs[i];
                const auto at = std::upper_bound(hs.begin(), hs.begin() + qsizetype(i), h, less);
                std::move_backward(at, hs.begin() + qsizetype(i), hs.begin() + qsizetype(i + 1));
                *at = h;
            }
        } else {
            // The captions copied side by side: a sort reads each many
            // times, and from one buffer it reads them from the cache.
            size_t chars = 0;
            for (size_t i = 0; i < upTo; ++i)
                chars += size_t(sortText(hs[i]).size());
            std::u16string captions;
            captions.reserve(chars);
            for (size_t i = 0; i < upTo; ++i) {
                const QStringView t = sortText(hs[i]);
                captions.append(reinterpret_cast<const char16_t *>(t.utf16()), size_t(t.size()));
            }
            std::vector<std::pair<QStringView, int>> keyed;
            keyed.reserve(upTo);
            size_t at = 0;
            for (size_t i = 0; i < upTo; ++i) {
                const qsizetype len = sortText(hs[i]).size();
                keyed.emplace_back(QStringView(captions.data() + at, len), hs[i]);
                at += size_t(len);
            }
            // Where every caption begins alike ("Layer 1", "Layer 2"), each
            // comparison starts behind that; a pair of surrogates stays whole.
            qsizetype common = keyed.empty() ? 0 : keyed[0].first.size();
            for (size_t i = 1; i < keyed.size() && common > 0; ++i) {
                const QStringView a = keyed[0].first;
                const QStringView b = keyed[i].first;
                const qsizetype m = std::min(common, b.size());
                qsizetype j = 0;
                while (j < m && a[j] == b[j])
                    ++j;
                common = j;
            }
            if (common > 0 && keyed[0].first[common - 1].isHighSurrogate())
                --common;
            for (auto &k : keyed)
                k.first = k.first.mid(common);
            const auto byText = [](const auto &a, const auto &b) {
                return lessCaption(a.first, b.first);
            };
            std::stable_sort(keyed.begin() + qsizetype(first), keyed.end(), byText);
            std::inplace_merge(keyed.begin(), keyed.begin() + qsizetype(first), keyed.end(),
                               byText);
            for (size_t i = 0; i < upTo; ++i)
                hs[i] = keyed[i].second;
        }
        k.sortedLen = upTo;
        // Positions are numbered again when next asked for (posOf).
    }
    if (k.pendingLen <= upTo)
        k.pendingLen = 0;
}

const std::vector<int> &zelRecordModel::children(int parentHandle) const
{
    Kids *k = kidsOf(parentHandle);
    if (!k)
        return noChildren;
    if (k->pendingLen > 0)
        sortKids(*k, k->pendingLen);
    return k->handles;
}

int zelRecordModel::posOf(int handle) const
{
    const Row &r = row(handle);
    const std::vector<int> &siblings = children(r.rowParent);
    if (size_t(r.pos) < siblings.size() && siblings[size_t(r.pos)] == handle)
        return r.pos;
    // Inserted or sorted rows moved their siblings: number them all again.
    for (size_t i = 0; i < siblings.size(); ++i)
        row(siblings[i]).pos = int(i);
    return r.pos;
}

QStringView zelRecordModel::cell(int handle, int column) const
{
    QStringView rest(row(handle).texts);
    for (int c = 0; c < column; ++c) {
        const qsizetype tab = rest.indexOf(u'\t');
        if (tab < 0)
            return {};
        rest = rest.mid(tab + 1);
    }
    const qsizetype tab = rest.indexOf(u'\t');
    return tab < 0 ? rest : rest.left(tab);
}

QStringView zelRecordModel::sortText(int handle) const
{
    const Row &r = row(handle);
    if (m_treeColumn == 0 && r.treeText) {
        const auto it = m_treeTexts.constFind(handle);
        if (it != m_treeTexts.constEnd())
            return *it;
    }
    if (r.captionLen < 0) {
        const qsizetype tab = r.texts.indexOf(QLatin1Char('\t'));
        r.captionLen = qint32(tab < 0 ? r.texts.size() : tab);
    }
    return QStringView(r.texts).left(r.captionLen);
}

QString zelRecordModel::CellText(int handle, int column) const
{
    if (!IsRow(handle) || column < 0)
        return {};
    if (column == m_treeColumn && row(handle).treeText) {
        const auto it = m_treeTexts.constFind(handle);
        if (it != m_treeTexts.constEnd())
            return *it;
        return cell(handle, 0).toString();
    }
    return cell(handle, column).toString();
}

int zelRecordModel::FindKey(const QString &key) const
{
    const int found = m_store->FindExact(key);
    if (found >= 0)
        return IsRow(found) ? found : 0;
    // Rows that share the key: the first in display order.
    std::vector<int> stack(children(0).rbegin(), children(0).rend());
    while (!stack.empty()) {
        const int h = stack.back();
        stack.pop_back();
        if (row(h).key == key)
            return h;
        const std::vector<int> &kids = children(h);
        stack.insert(stack.end(), kids.rbegin(), kids.rend());
    }
    return 0;
}

int zelRecordModel::AddRow(int parentHandle, const RecordPtr &record, const QString &texts,
                           const QString &treeText, int imageIndex, bool enabled, bool sorted)
{
    if (parentHandle != 0 && !IsRow(parentHandle))
        return 0;
    const int entry = m_store->Append(record ? record->Key() : QString(), texts);
    return AddEntryRow(parentHandle, entry, treeText, imageIndex, enabled, sorted);
}

int zelRecordModel::AddEntryRow(int parentHandle, int entry, const QString &treeText,
                                int imageIndex, bool enabled, bool sorted)
{
    if (parentHandle != 0 && !IsRow(parentHandle))
        return 0;
    if (entry != m_rowCount + 1 || entry > m_store->Count())
        return 0;
    touch();
    const int h = entry;
    Row &r = row(h);
    r.rowParent = parentHandle;
    r.image = imageIndex;
    r.enabled = enabled;
    m_disabledRows += enabled ? 0 : 1;
    if (!treeText.isEmpty()) {
        m_treeTexts.insert(h, treeText);
        r.treeText = true;
    }
    ++m_rowCount;

    Kids *k = kidsOf(parentHandle);
    if (!k) {
        row(parentHandle).kids = std::make_unique<Kids>();
        ++m_parentRows;
        k = row(parentHandle).kids.get();
    }
    auto &hs = k->handles;
    // Appending keeps the rows in order when they were and the new one
    // does not sort before the last. Unsorted adds do not ask: the next
    // sorted add sorts what came since.
    const bool inOrder = sorted && k->sortedLen == hs.size() && k->pendingLen == 0 &&
                         (hs.empty() || !lessCaption(sortText(h), sortText(hs.back())));

    if (m_updating > 0) {
        r.pos = int(hs.size());
        hs.push_back(h);
        if (inOrder) {
            k->sortedLen = hs.size();
        } else if (sorted) {
            if (k->pendingLen == 0)
                m_pending.push_back(parentHandle);
            k->pendingLen = hs.size();
        }
        return h;
    }

    size_t pos = hs.size();
    if (inOrder) {
        ++k->sortedLen;
    } else if (sorted) {
        if (k->sortedLen < hs.size())
            sortWithSignals(parentHandle, *k);
        pos = size_t(std::upper_bound(
                         hs.begin(), hs.end(), h,
                         [this](int a, int b) { return lessCaption(sortText(a), sortText(b)); }) -
                     hs.begin());
        ++k->sortedLen;
    }
    beginInsertRows(IndexOf(parentHandle), int(pos), int(pos));
    hs.insert(hs.begin() + qsizetype(pos), h);
    row(h).pos = int(pos);
    endInsertRows();
    return h;
}

void zelRecordModel::sortWithSignals(int parentHandle, Kids &k)
{
    const QList<QPersistentModelIndex> parents{IndexOf(parentHandle)};
    emit layoutAboutToBeChanged(parents, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    sortKids(k, k.handles.size());
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &i : before)
        after.append(createIndex(posOf(int(i.internalId())), i.column(), i.internalId()));
    changePersistentIndexList(before, after);
    emit layoutChanged(parents, QAbstractItemModel::VerticalSortHint);
}

void zelRecordModel::Clear()
{
    if (m_updating == 0)
        beginResetModel();
    touch();
    m_store->Clear();
    forgetRows();
    if (m_updating == 0)
        endResetModel();
}

void zelRecordModel::BeginUpdate()
{
    ++m_updating;
}

void zelRecordModel::EndUpdate()
{
    if (m_updating == 0 || --m_updating > 0)
        return;
    for (const int p : m_pending)
        (void)children(p);
    m_pending.clear();
    if (m_resetting) {
        m_resetting = false;
        endResetModel();
        emitExpansions();
    }
}

void zelRecordModel::emitExpansions()
{
    if (m_expandedRows == 0)
        return;
    for (int h = 1; h <= m_rowCount; ++h)
        if (row(h).expanded)
            emit ExpandRequested(IndexOf(h), true);
}

QString zelRecordModel::KeyOf(int handle) const
{
    return IsRow(handle) ? row(handle).key : QString();
}

QString zelRecordModel::TextsOf(int handle) const
{
    return IsRow(handle) ? row(handle).texts : QString();
}

int zelRecordModel::HandleOf(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this)
        return 0;
    const int h = int(index.internalId());
    return IsRow(h) ? h : 0;
}

QModelIndex zelRecordModel::IndexOf(int handle, int column) const
{
    if (!IsRow(handle) || column < 0 || column >= ColumnCount())
        return {};
    return createIndex(posOf(handle), column, quintptr(handle));
}

int zelRecordModel::ChildCount(int parentHandle) const
{
    const Kids *k = kidsOf(parentHandle);
    return k ? int(k->handles.size()) : 0;
}

int zelRecordModel::ChildAt(int parentHandle, int position) const
{
    const std::vector<int> &kids = children(parentHandle);
    return position >= 0 && size_t(position) < kids.size() ? kids[size_t(position)] : 0;
}

int zelRecordModel::ParentOf(int handle) const
{
    return IsRow(handle) ? row(handle).rowParent : 0;
}

int zelRecordModel::Depth(int handle) const
{
    int depth = 0;
    for (int p = ParentOf(handle); p != 0; p = ParentOf(p))
        ++depth;
    return depth;
}

void zelRecordModel::rowChanged(int handle)
{
    touch();
    if (m_updating == 0 && ColumnCount() > 0)
        emit dataChanged(IndexOf(handle, 0), IndexOf(handle, ColumnCount() - 1));
}

void zelRecordModel::SetImageProvider(ImageProvider provider)
{
    m_images = std::move(provider);
    if (m_updating == 0 && m_rowCount > 0) {
        emit layoutAboutToBeChanged();
        emit layoutChanged();
    }
}

void zelRecordModel::SetImage(int handle, int imageIndex)
{
    if (!IsRow(handle) || row(handle).image == imageIndex)
        return;
    row(handle).image = imageIndex;
    rowChanged(handle);
}

int zelRecordModel::Image(int handle) const
{
    return IsRow(handle) ? row(handle).image : 0;
}

void zelRecordModel::SetEnabled(int handle, bool enabled)
{
    if (!IsRow(handle) || row(handle).enabled == enabled)
        return;
    m_disabledRows += enabled ? -1 : 1;
    row(handle).enabled = enabled;
    rowChanged(handle);
}

bool zelRecordModel::IsEnabled(int handle) const
{
    return IsRow(handle) && row(handle).enabled;
}

void zelRecordModel::SetExpanded(int handle, bool expanded)
{
    if (!IsRow(handle))
        return;
    if (row(handle).expanded != expanded)
        m_expandedRows += expanded ? 1 : -1;
    row(handle).expanded = expanded;
    if (m_updating == 0)
        emit ExpandRequested(IndexOf(handle), expanded);
}

bool zelRecordModel::IsExpanded(int handle) const
{
    return IsRow(handle) && row(handle).expanded;
}

void zelRecordModel::SetCellPaint(int handle, int column, quint32 backColour, bool bold)
{
    if (!IsRow(handle) || column < 0)
        return;
    m_paint.insert((quint64(handle) << 32) | quint32(column), CellPaint{backColour, bold});
    rowChanged(handle);
}

QModelIndex zelRecordModel::index(int r, int column, const QModelIndex &parent) const
{
    if (column < 0 || column >= ColumnCount() || (parent.isValid() && parent.column() != 0))
        return {};
    const int p = parent.isValid() ? HandleOf(parent) : 0;
    if (parent.isValid() && p == 0)
        return {};
    const std::vector<int> &kids = children(p);
    if (r < 0 || size_t(r) >= kids.size())
        return {};
    return createIndex(r, column, quintptr(kids[size_t(r)]));
}

QModelIndex zelRecordModel::parent(const QModelIndex &child) const
{
    const int h = HandleOf(child);
    const int p = h ? row(h).rowParent : 0;
    return p ? createIndex(posOf(p), 0, quintptr(p)) : QModelIndex();
}

int zelRecordModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(m_root.handles.size());
    if (parent.column() != 0)
        return 0;
    return ChildCount(HandleOf(parent));
}

int zelRecordModel::columnCount(const QModelIndex &) const
{
    return ColumnCount();
}

QVariant zelRecordModel::data(const QModelIndex &index, int role) const
{
    const int h = HandleOf(index);
    const int c = index.column();
    if (!h || c >= ColumnCount())
        return {};
    const Row &r = row(h);
    switch (role) {
    case Qt::DisplayRole:
        return CellText(h, c);
    case Qt::UserRole:
        return c == 0 ? QVariant(r.key) : QVariant();
    case Qt::DecorationRole:
        if ((c == 0 || c == m_treeColumn) && r.image > 0 && m_images)
            return m_images(r.image);
        return {};
    case Qt::TextAlignmentRole: {
        const int a = m_columns[c].alignment;
        return a < 0 ? QVariant() : QVariant::fromValue(alignmentOf(a));
    }
    case Qt::BackgroundRole:
    case Qt::FontRole: {
        const auto it = m_paint.constFind((quint64(h) << 32) | quint32(c));
        if (it == m_paint.constEnd())
            return {};
        if (role == Qt::BackgroundRole)
            return QBrush(zel::ToQColor(it->back));
        if (!it->bold)
            return {};
        QFont f;
        f.setBold(true);
        return f;
    }
    default:
        return {};
    }
}

QVariant zelRecordModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount())
        return QAbstractItemModel::headerData(section, orientation, role);
    const zel::zelColumnDesc &d = m_columns[section];
    if (role == Qt::DisplayRole)
        return d.caption;
    if (role == Qt::TextAlignmentRole && d.alignment >= 0)
        return QVariant::fromValue(alignmentOf(d.alignment));
    return {};
}

Qt::ItemFlags zelRecordModel::flags(const QModelIndex &index) const
{
    const int h = HandleOf(index);
    // A view lays out by asking every row: without disabled rows it need
    // not visit the rows' entries.
    if (!h || (m_disabledRows > 0 && !row(h).enabled))
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}
