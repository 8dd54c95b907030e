#include "grid/zelGridList.h"

#include "buttons/zelPrpButtons.h"
#include "core/mLog.h"
#include "core/zelConvert.h"
#include "core/zelShared.h"
#include "core/zelTrail.h"
#include "grid/zelGridList_p.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyle>

ZEL_REGISTER_PROGID(zelGridList);

namespace {

// The procedures that run once per row when a host fills a long list name
// themselves without building their trail name each time.
const QString &trailName(const char *procedure)
{
    static QHash<const char *, QString> names;
    auto it = names.find(procedure);
    if (it == names.end())
        it = names.insert(procedure,
                          QStringLiteral("zelGridList.") + QString::fromLatin1(procedure));
    return *it;
}

QRect toPixels(const QRect &twips)
{
    return QRect(zel::TwipsToPixels(twips.x()), zel::TwipsToPixels(twips.y()),
                 zel::TwipsToPixels(twips.width()), zel::TwipsToPixels(twips.height()));
}

// What the German and English captions of the buttons beside the grid say.
struct SideCaptions
{
    const char *add;
    const char *edit;
    const char *remove;
};
constexpr SideCaptions English{"&New", "&Edit", "&Delete"};
constexpr SideCaptions German{"&Neu", "&Bearbeiten", "&Löschen"};

} // namespace

zelGridList::zelGridList(QWidget *parent)
    : QWidget(parent), m_columns(std::make_shared<zelGridColumns>()),
      m_items(std::make_shared<zelGridRows>())
{
    zel::RegisterShared<zelGridColumns>();
    zel::RegisterShared<zelGridRows>();
    zel::RegisterShared<zelGridRow>();
    zel::RegisterShared<zelGridColumn>();

    m_lblCaption = new QLabel(this);
    m_lblCaption->setObjectName(QStringLiteral("lblCaption"));
    m_lblCaption->setVisible(false);

    m_model = new zelGridModel(this);
    m_vfgItems = new zelGridView(this, m_model);
    m_vfgItems->setObjectName(QStringLiteral("vfgItems"));
    m_vfgItems->setModel(m_model);
    m_delegate = new zelGridDelegate(this, m_model, m_vfgItems);
    m_vfgItems->setItemDelegate(m_delegate);
    m_vfgItems->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_vfgItems->setSelectionMode(QAbstractItemView::SingleSelection);
    m_vfgItems->setEditTriggers(QAbstractItemView::DoubleClicked |
                                QAbstractItemView::EditKeyPressed |
                                QAbstractItemView::AnyKeyPressed);
    m_vfgItems->setTabKeyNavigation(false);
    m_vfgItems->setWordWrap(false);
    m_vfgItems->setCornerButtonEnabled(false);
    m_vfgItems->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // Every row has the same height: the view then never measures rows,
    // which keeps lists of a million rows quick.
    QHeaderView *rows = m_vfgItems->verticalHeader();
    rows->setVisible(false);
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(m_vfgItems->fontMetrics().height() + 6);
    QHeaderView *cols = m_vfgItems->horizontalHeader();
    cols->setSectionResizeMode(QHeaderView::Interactive);
    cols->setStretchLastSection(false);
    cols->setHighlightSections(false);
    cols->setSectionsClickable(false);
    // A column is as narrow as its Width says: the style's minimum would
    // widen a check-box column and leave the sized column short of the edge.
    cols->setMinimumSectionSize(0);
    connect(cols, &QHeaderView::sectionResized, this, [this](int i, int, int size) {
        if (!m_applyingWidths && i >= 0 && i < int(m_colWidths.size()))
            m_colWidths[size_t(i)] = zel::PixelsToTwips(size);
    });
    connect(m_vfgItems->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { EnableControls(); });
    // A new current cell, even in the same row, is a row-and-column change.
    connect(m_vfgItems->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        if (!m_busy)
            NoteSelectionChange();
    });
    connect(m_vfgItems->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &selected, const QItemSelection &deselected) {
                QList<int> on, off;
                for (const QItemSelectionRange &r : selected)
                    for (int i = r.top(); i <= r.bottom(); ++i)
                        on.append(i + 1);
                for (const QItemSelectionRange &r : deselected)
                    for (int i = r.top(); i <= r.bottom(); ++i)
                        off.append(i + 1);
                vfgItems_SelChanging(on, off);
                if (!m_busy)
                    NoteSelectionChange();
            });
    m_viewport = m_vfgItems->viewport();
    m_viewport->installEventFilter(this);

    auto makeButton = [this](const char *name) {
        auto *b = new QPushButton(this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        b->setVisible(false);
        return b;
    };
    m_cmdAdd = makeButton("cmdAdd");
    m_cmdEdit = makeButton("cmdEdit");
    m_cmdDelete = makeButton("cmdDelete");
    m_cmdUp = makeButton("cmdUp");
    m_cmdDown = makeButton("cmdDown");
    m_cmdUp->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    m_cmdDown->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    m_cmdUp->setToolTip(QStringLiteral("Up"));
    m_cmdDown->setToolTip(QStringLiteral("Down"));
    connect(m_cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    connect(m_cmdEdit, &QPushButton::clicked, this, [this] { cmdEdit_Click(); });
    connect(m_cmdDelete, &QPushButton::clicked, this, [this] { cmdDelete_Click(); });
    connect(m_cmdUp, &QPushButton::clicked, this, [this] { cmdUp_Click(); });
    connect(m_cmdDown, &QPushButton::clicked, this, [this] { cmdDown_Click(); });

    m_mpbProps = new zelPrpButtons(this);
    m_mpbProps->setObjectName(QStringLiteral("mpbProps"));
    connect(m_mpbProps, &zelPrpButtons::Add, this, [this] { mpbProps_Add(); });
    connect(m_mpbProps, &zelPrpButtons::Remove, this, [this] { mpbProps_Remove(); });
    connect(m_mpbProps, &zelPrpButtons::Properties, this, [this] { mpbProps_Properties(); });
    connect(m_mpbProps, &zelPrpButtons::OptionButton, this,
            [this](qint32 index) { mpbProps_OptionButton(index); });

    ApplyLanguage();
    InitGrid();
    SetVisibleButtons();
    resize(zel::TwipsToPixels(4800), zel::TwipsToPixels(3000));
    LayoutControl();
}

zelGridList::~zelGridList()
{
    // The grid goes first, while the rows are still here: an editor that
    // closes on the way must find them, and must raise nothing to a host
    // whose control is going.
    m_destroying = true;
    m_viewport->removeEventFilter(this);
    delete m_vfgItems;
    m_vfgItems = nullptr;
}

QTableView *zelGridList::Grid() const
{
    return m_vfgItems;
}

// ---------------------------------------------------------------- properties

void zelGridList::ApplyLanguage()
{
    const QString lower = m_language.toLower();
    const SideCaptions *c = nullptr;
    if (lower == QLatin1String("german") || lower == QLatin1String("deutsch"))
        c = &German;
    else if (lower == QLatin1String("english"))
        c = &English;
    if (!c)
        return; // another language keeps the captions it had
    m_cmdAdd->setText(QString::fromUtf8(c->add));
    m_cmdEdit->setText(QString::fromUtf8(c->edit));
    m_cmdDelete->setText(QString::fromUtf8(c->remove));
}

QString zelGridList::OptionButtonCaption(qint32 Index) const
{
    return m_mpbProps->OptionButtonCaption(Index);
}

void zelGridList::SetOptionButtonCaption(qint32 Index, const QString &sCaption)
{
    zel::Trail t(this, "OptionButtonCaption Let");
    t.Run([&] { m_mpbProps->SetOptionButtonCaption(Index, sCaption); });
}

std::shared_ptr<zelGridRows> zelGridList::SelectedItems()
{
    auto result = std::make_shared<zelGridRows>();
    zel::Trail t(this, "SelectedItems Get");
    t.Run([&] {
        QModelIndexList rows = m_vfgItems->selectionModel()->selectedRows();
        std::sort(rows.begin(), rows.end(),
                  [](const QModelIndex &a, const QModelIndex &b) { return a.row() < b.row(); });
        for (const QModelIndex &i : std::as_const(rows))
            if (auto row = m_items->ItemAt(i.row() + 1))
                result->Add(row);
        m_selectedItems = result;
    });
    return result;
}

std::shared_ptr<zelGridRow> zelGridList::RowData(qint32 lRow) const
{
    return m_items->ItemAt(lRow);
}

void zelGridList::ApplySelectionMode()
{
    m_vfgItems->setSelectionMode(m_multiSelect ? QAbstractItemView::ExtendedSelection
                                               : QAbstractItemView::SingleSelection);
}

// ---------------------------------------------------------------- buttons

void zelGridList::ChangeEnabledButtons(ZEL_PrpButtons eButton, bool bEnabled)
{
    zel::Trail t(this, "ChangeEnabledButtons");
    t.Run([&] { SetButtonsEnabled(zelBarWithBits(ButtonsEnabled(), qint32(eButton), bEnabled)); });
}

void zelGridList::ChangeVisibleButtons(ZEL_PrpButtons eButton, bool bVisible)
{
    zel::Trail t(this, "ChangeVisibleButtons");
    t.Run([&] { SetButtonsVisible(zelBarWithBits(ButtonsVisible(), qint32(eButton), bVisible)); });
}

bool zelGridList::LoadOptionButtonPicture(qint32 Index, const QVariant &oPicture)
{
    bool result = false;
    zel::Trail t(this, "LoadOptionButtonPicture");
    t.Run([&] { result = m_mpbProps->LoadOptionButtonPicture(Index, oPicture); });
    return result;
}

void zelGridList::FocusOnButton(ZEL_PrpButtons eButton)
{
    zel::Trail t(this, "FocusOnButton");
    t.Run([&] {
        if (!m_buttonsOnSide) {
            m_mpbProps->FocusOnButton(eButton);
            return;
        }
        QPushButton *b = eButton == ZEL_PrpButton_Add      ? m_cmdAdd
                         : eButton == ZEL_PrpButton_Remove ? m_cmdDelete
                         : eButton == ZEL_PrpButton_Props  ? m_cmdEdit
                                                           : nullptr;
        if (b && b->isVisibleTo(this) && b->isEnabled())
            b->setFocus(Qt::OtherFocusReason);
    });
}

void zelGridList::SetVisibleButtons()
{
    const qint32 bits = ButtonsVisible();
    m_mpbProps->setVisible(!m_buttonsOnSide && (bits & 0xFF) != 0);
    EnableControls();
}

void zelGridList::EnableControls()
{
    const qint32 on = ButtonsEnabled();
    const qint32 r = CurrentRow();
    const qint32 last = m_items->Count();
    m_cmdAdd->setEnabled(on & ZEL_PrpButton_Add);
    m_cmdEdit->setEnabled(on & ZEL_PrpButton_Props);
    m_cmdDelete->setEnabled(on & ZEL_PrpButton_Remove);
    m_cmdUp->setEnabled(r > 1);
    m_cmdDown->setEnabled(r >= 1 && r < last);
}

void zelGridList::cmdAdd_Click()
{
    zel::Trail t(this, "cmdAdd_Click");
    t.Run([&] { emit NewRow(zel::CheckedAdd<qint32>(CurrentRow(), 1)); });
}

void zelGridList::cmdEdit_Click()
{
    zel::Trail t(this, "cmdEdit_Click");
    t.Run([&] { emit Edit(CurrentRow()); });
}

void zelGridList::cmdDelete_Click()
{
    zel::Trail t(this, "cmdDelete_Click");
    t.Run([&] {
        const qint32 r = CurrentRow();
        if (r < 1)
            return;
        const auto row = m_items->ItemAt(r);
        emit Delete(r, row ? row->Key() : QString());
    });
}

void zelGridList::cmdUp_Click()
{
    zel::Trail t(this, "cmdUp_Click");
    t.Run([&] {
        const qint32 r = CurrentRow();
        if (r <= 1 || r > m_items->Count())
            return;
        qint32 from = r, to = r - 1;
        if (!m_items->Move(from, to))
            return;
        // Two neighbours trade places: they are shown again where they are,
        // and the current row follows the moved one.
        m_model->RowsChanged(to, r);
        SelectRow(to);
        // The host hears of the new current row before it hears of the move.
        FlushSelectionEvents();
        qint32 lNewRow = to;
        emit RowMoved(r, lNewRow);
        if (lNewRow != to && lNewRow >= 1 && lNewRow <= m_items->Count())
            SelectRow(lNewRow);
    });
}

void zelGridList::cmdDown_Click()
{
    zel::Trail t(this, "cmdDown_Click");
    t.Run([&] {
        const qint32 r = CurrentRow();
        if (r < 1 || r >= m_items->Count())
            return;
        qint32 from = r, to = r + 1;
        if (!m_items->Move(from, to))
            return;
        m_model->RowsChanged(r, to);
        SelectRow(to);
        FlushSelectionEvents();
        qint32 lNewRow = to;
        emit RowMoved(r, lNewRow);
        if (lNewRow != to && lNewRow >= 1 && lNewRow <= m_items->Count())
            SelectRow(lNewRow);
    });
}

void zelGridList::mpbProps_Add()
{
    zel::Trail t(this, "mpbProps_Add");
    t.Run([&] { cmdAdd_Click(); });
}

void zelGridList::mpbProps_Remove()
{
    zel::Trail t(this, "mpbProps_Remove");
    t.Run([&] { cmdDelete_Click(); });
}

void zelGridList::mpbProps_Properties()
{
    zel::Trail t(this, "mpbProps_Properties");
    t.Run([&] { cmdEdit_Click(); });
}

void zelGridList::mpbProps_OptionButton(qint32 Index)
{
    zel::Trail t(this, "mpbProps_OptionButton");
    t.Run([&] { emit OptionClicked(Index); });
}

// ---------------------------------------------------------------- columns

std::shared_ptr<zelGridColumn> zelGridList::AddColumn(const QString &sCaption,
                                                      ZEL_Controls_ColumnAlign eAlign)
{
    std::shared_ptr<zelGridColumn> result;
    zel::Trail t(this, "AddColumn");
    t.Run([&] {
        result = m_columns->Create(sCaption, eAlign);
        if (result)
            InitGrid();
    });
    return result;
}

std::shared_ptr<zelGridColumn> zelGridList::AddColumnEx(const QString &sCaption,
                                                        ZEL_Controls_ColumnAlign eAlign,
                                                        qint32 eDataType, qint16 iDecimals,
                                                        qint16 iWidth)
{
    std::shared_ptr<zelGridColumn> result;
    zel::Trail t(this, "AddColumnEx");
    t.Run([&] {
        auto col = m_columns->Create(sCaption, eAlign);
        if (!col)
            return;
        col->SetDataType(eDataType);
        col->SetDecimals(iDecimals);
        col->SetWidth(iWidth);
        result = col;
        InitGrid();
    });
    return result;
}

void zelGridList::RefreshColumns()
{
    zel::Trail t(this, "RefreshColumns");
    t.Run([&] { InitGrid(); });
}

void zelGridList::InitGrid()
{
    zel::Trail t(this, "InitGrid");
    t.Run([&] {
        m_vfgItems->setUpdatesEnabled(false);
        const int defaultWidth =
            zel::PixelsToTwips(m_vfgItems->horizontalHeader()->defaultSectionSize());
        std::vector<zelGridColumnFormat> formats;
        std::vector<qint32> widths;
        for (const auto &col : *m_columns) {
            zelGridColumnFormat s;
            s.Caption = col->Caption();
            s.DataType = col->DataType() == 0 ? zelGridType::String : col->DataType();
            s.Decimals = col->Decimals();
            s.Alignment = col->Alignment();
            QString list = col->ComboList();
            if (!list.isEmpty()) {
                s.ComboEditable = list.startsWith(QLatin1Char('|'));
                if (s.ComboEditable)
                    list.remove(0, 1);
                s.Combo = list.split(QLatin1Char('|'));
            }
            formats.push_back(std::move(s));
            widths.push_back(col->Width() > 0 ? col->Width() : defaultWidth);
        }
        m_model->ResetColumns(std::move(formats));
        m_colWidths = std::move(widths);
        ApplySelectionMode();
        ApplyColumnWidths();
        m_vfgItems->setUpdatesEnabled(true);
        SizeColZero();
        if (m_model->HasColourColumns())
            for (qint32 r = 1; r <= m_items->Count(); ++r)
                SetColorCells(r);
        EnableControls();
    });
    m_vfgItems->setUpdatesEnabled(true);
}

void zelGridList::ApplyColumnWidths()
{
    const QScopedValueRollback<bool> guard(m_applyingWidths, true);
    QHeaderView *header = m_vfgItems->horizontalHeader();
    for (size_t i = 0; i < m_colWidths.size(); ++i)
        header->resizeSection(int(i), zel::TwipsToPixels(m_colWidths[i]));
}

void zelGridList::SetColumnWidth(int column, qint32 twips, int pixels)
{
    if (column < 0 || column >= int(m_colWidths.size()))
        return;
    m_colWidths[size_t(column)] = twips;
    const QScopedValueRollback<bool> guard(m_applyingWidths, true);
    m_vfgItems->horizontalHeader()->resizeSection(column,
                                                  pixels >= 0 ? pixels : zel::TwipsToPixels(twips));
}

qint32 zelGridList::ColumnWidth(int column) const
{
    return column >= 0 && column < int(m_colWidths.size()) ? m_colWidths[size_t(column)] : 0;
}

int zelGridList::GridClientPixels() const
{
    // A shown grid knows its viewport (less a vertical scroll bar); a hidden
    // one has not laid out its scroll bars yet, and its inside is used.
    return m_vfgItems->isVisible() ? m_vfgItems->viewport()->width()
                                   : m_vfgItems->contentsRect().width();
}

qint32 zelGridList::GridClientWidth() const
{
    return zel::PixelsToTwips(GridClientPixels());
}

void zelGridList::SizeColZero()
{
    const QString &name = trailName("SizeColZero");
    zel::Trail t(name);
    t.Run([&] {
        if (!m_autoSizeColZero || !m_columns)
            return;
        const qint32 count = m_columns->Count();
        mLog::TraceLog(name, QStringLiteral("m_oColumns.Count: "), QString::number(count));
        const int gridCols = m_model->columnCount();
        if (count <= 1 || gridCols < 1)
            return;
        int sizeCol = -1;
        qint64 sum = 0;
        for (int c = 0; c < gridCols; ++c) {
            if (sizeCol < 0 && !m_model->IsBoolean(c))
                sizeCol = c;
            else
                sum += ColumnWidth(c);
        }
        mLog::TraceLog(name, QStringLiteral("lSizeCol = "), QString::number(sizeCol));
        if (sizeCol < 0)
            return;
        const auto col = m_columns->Item(sizeCol + 1);
        if (!col)
            throw zelError(zelError::SubscriptOutOfRange);
        const qint32 w = col->Width();
        const qint32 client = GridClientWidth();
        mLog::TraceLog(name, QStringLiteral("Grd Width:"), QString::number(client));
        mLog::TraceLog(name, QStringLiteral("Col Width:"), QString::number(w));
        mLog::TraceLog(name, QStringLiteral("Sum Width:"), QString::number(sum));
        if (sum + w < client) {
            // Filling the room: in pixels it takes exactly what the others
            // leave, whatever each width rounded to.
            int otherPixels = 0;
            for (int c = 0; c < gridCols; ++c)
                if (c != sizeCol)
                    otherPixels += m_vfgItems->horizontalHeader()->sectionSize(c);
            SetColumnWidth(sizeCol, qint32(client - sum),
                           std::max(0, GridClientPixels() - otherPixels));
        } else {
            SetColumnWidth(sizeCol, w);
        }
    });
}

// ---------------------------------------------------------------- rows

std::shared_ptr<zelGridRow> zelGridList::AddItem(const QString &sRowText, const QString &sKey,
                                                 const QVariant &oTag, qint32 lRow)
{
    std::shared_ptr<zelGridRow> result;
    zel::Trail t(trailName("AddItem"));
    t.Run([&] { result = AddItemEx(sRowText, sKey, oTag, lRow, false); });
    return result;
}

std::shared_ptr<zelGridRow> zelGridList::AddItemEx(const QString &sRowText, const QString &sKey,
                                                   const QVariant &oTag, qint32 lRow, bool bChecked)
{
    std::shared_ptr<zelGridRow> result;
    zel::Trail t(trailName("AddItemEx"));
    const QScopedValueRollback<bool> busy(m_busy, true);
    t.Run([&] {
        m_selectedItems.reset();
        auto row = m_items->Create(sKey, sRowText, oTag);
        if (!row)
            return;
        const qint32 count = m_items->Count();
        if (lRow < 0 || lRow >= count) {
            lRow = count;
        } else {
            qint32 from = count;
            qint32 to = lRow;
            if (!m_items->Move(from, to))
                return; // the row could not go there and is not in the list
            // The rows from lRow on move down one, and the current row and
            // the selection with them.
            m_model->Sync();
            ShiftSelection(lRow, +1);
        }
        m_model->RowsChanged(lRow, count);
        if (m_model->ViewRows() != count)
            m_model->ScheduleSync();
        result = row;
        if (m_checkBoxes)
            row->SetCheckedFlag(bChecked);
        if (m_model->HasColourColumns())
            SetColorCells(lRow);
        // Editable cells take their colour from the row as it is drawn: a
        // new row needs no extra step (SetBackColor).
        if (m_items->Count() == 1) {
            if (sKey.isEmpty())
                SelectRow(1);
            else
                SelectItem(sKey);
        }
        SizeColZero();
        if (lRow <= CurrentRow() + 1)
            EnableControls();
    });
    return result;
}

std::shared_ptr<zelGridRow> zelGridList::SetItem(const QString &sRowText, const QString &sKey,
                                                 const QVariant &oTag, qint32 lRow)
{
    std::shared_ptr<zelGridRow> result;
    zel::Trail t(this, "SetItem");
    const QScopedValueRollback<bool> busy(m_busy, true);
    t.Run([&] {
        const qint32 r = (lRow >= 1 && lRow <= m_items->Count()) ? lRow : FindRow(sKey);
        if (r < 1)
            return;
        auto row = m_items->ItemAt(r);
        if (!row)
            return;
        row->SetData(sRowText);
        if (oTag.isValid())
            row->SetTag(oTag);
        result = row;
        SetColorCells(r);
        SetBackColor(r);
    });
    return result;
}

void zelGridList::SetColorCells(qint32 lRow)
{
    zel::Trail t(trailName("SetColorCells"));
    t.Run([&] {
        const auto row = m_items->ItemAt(lRow);
        if (!row || !m_model->HasColourColumns())
            return;
        row->ClearCellColours();
        const auto &formats = m_model->Formats();
        for (int c = 0; c < int(formats.size()); ++c) {
            if (formats[size_t(c)].DataType != zelGridType::Colour)
                continue;
            t.Step = QStringLiteral("Column %1").arg(c);
            // Colours are 32-bit patterns: system colours read as negative.
            const quint32 colour = quint32(zel::CLng(row->Cell(c).toString()));
            row->SetCellColour(c, colour);
        }
        t.Step.clear();
    });
    m_model->RowsChanged(lRow, lRow);
}

void zelGridList::SetBackColor(qint32 lRow)
{
    zel::Trail t(this, "SetBackColor");
    // The pale yellow of editable cells is drawn from the columns and the
    // row as they are: showing the row again is all it takes.
    t.Run([&] { m_model->RowsChanged(lRow, lRow); });
}

bool zelGridList::SetItemColor(qint32 lRow, quint32 lColor)
{
    bool result = false;
    zel::Trail t(this, "SetItemColor");
    t.Run([&] {
        const auto row = m_items->ItemAt(lRow);
        if (!row)
            return;
        row->SetRowColorValue(lColor);
        m_model->RowsChanged(lRow, lRow);
        result = true;
    });
    return result;
}

bool zelGridList::SetItemColorByKey(const QString &sKey, quint32 lColor)
{
    bool result = false;
    zel::Trail t(this, "SetItemColorByKey");
    t.Run([&] { result = SetItemColor(FindRow(sKey), lColor); });
    return result;
}

bool zelGridList::CheckItem(qint32 lRow, bool bChecked)
{
    bool result = false;
    zel::Trail t(this, "CheckItem");
    t.Run([&] {
        const auto row = m_items->ItemAt(lRow);
        if (!row)
            return;
        row->SetCheckedFlag(bChecked);
        m_model->RowsChanged(lRow, lRow);
        result = true;
    });
    return result;
}

bool zelGridList::CheckItemByKey(const QString &sKey, bool bChecked)
{
    bool result = false;
    zel::Trail t(this, "CheckItemByKey");
    t.Run([&] { result = CheckItem(FindRow(sKey), bChecked); });
    return result;
}

QVariant zelGridList::Clear()
{
    QVariant result = false;
    zel::Trail t(this, "Clear");
    t.Run([&] {
        m_selectedItems.reset();
        m_items->Clear();
        m_model->ResetRows();
        EnableControls();
        result = true;
    });
    return result;
}

bool zelGridList::RemoveItem(qint32 lRow)
{
    bool result = false;
    zel::Trail t(trailName("RemoveItem"));
    t.Run([&] {
        const qint32 count = m_items->Count();
        if (lRow < 1 || lRow > count)
            return;
        m_selectedItems.reset();
        m_vfgItems->CloseEditor();
        if (!m_items->Remove(lRow))
            return;
        // The rows below move up one; the last shows empty until the grid
        // hears of the new count.
        m_model->RowsChanged(lRow, count);
        m_model->ScheduleSync();
        ShiftSelection(lRow, -1);
        EnableControls();
        result = true;
    });
    return result;
}

void zelGridList::ShiftSelection(qint32 lRow, int delta)
{
    QItemSelectionModel *sm = m_vfgItems->selectionModel();
    const int r0 = lRow - 1;
    const int count = m_items->Count();
    QItemSelection moved;
    bool selectionMoves = false;
    auto part = [&](int top, int bottom, const QItemSelectionRange &like) {
        if (top <= bottom)
            moved.append(QItemSelectionRange(m_model->index(top, like.left()),
                                             m_model->index(bottom, like.right())));
    };
    for (const QItemSelectionRange &range : sm->selection()) {
        if (range.bottom() < r0) {
            moved.append(range);
            continue;
        }
        selectionMoves = true;
        part(range.top(), std::min(range.bottom(), r0 - 1), range);
        if (delta > 0)
            part(std::max(range.top(), r0) + 1, range.bottom() + 1, range);
        else
            part(std::max(range.top(), r0 + 1) - 1, range.bottom() - 1, range);
    }
    const QModelIndex current = sm->currentIndex();
    int newCurrent = current.row();
    bool currentGone = false;
    if (current.isValid()) {
        if (delta > 0 && current.row() >= r0) {
            newCurrent = current.row() + 1;
        } else if (delta < 0 && current.row() > r0) {
            newCurrent = current.row() - 1;
        } else if (delta < 0 && current.row() == r0) {
            newCurrent = std::min(r0, count - 1);
            currentGone = true;
        }
    }
    if (!selectionMoves && newCurrent == current.row() && !currentGone)
        return;
    {
        const QScopedValueRollback<bool> busy(m_busy, true);
        const bool autoScroll = m_vfgItems->hasAutoScroll();
        m_vfgItems->setAutoScroll(false);
        if (selectionMoves)
            sm->select(moved, QItemSelectionModel::ClearAndSelect);
        if (newCurrent < 0) {
            sm->clearCurrentIndex();
        } else if (newCurrent != current.row() || currentGone) {
            // A removed current row hands over to the row now in its place,
            // which a single selection then selects.
            const auto command =
                currentGone && !m_multiSelect
                    ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                    : QItemSelectionModel::NoUpdate;
            sm->setCurrentIndex(m_model->index(newCurrent, current.column()), command);
        }
        m_vfgItems->setAutoScroll(autoScroll);
    }
    if (currentGone && newCurrent >= 0)
        NoteSelectionChange();
}

bool zelGridList::RemoveItemByKey(const QString &sKey)
{
    bool result = false;
    zel::Trail t(trailName("RemoveItemByKey"));
    t.Run([&] { result = RemoveItem(FindRow(sKey)); });
    return result;
}

qint32 zelGridList::FindRow(const QString &sKey) const
{
    return m_items->IndexOfKey(sKey);
}

bool zelGridList::SelectItem(const QString &sKey)
{
    bool result = false;
    zel::Trail t(trailName("SelectItem"));
    const QScopedValueRollback<bool> busy(m_busy, true);
    t.Run([&] {
        const qint32 r = FindRow(sKey);
        if (r < 1)
            return;
        SelectRow(r);
        result = true;
    });
    return result;
}

void zelGridList::SelectRow(qint32 lRow)
{
    if (lRow < 1 || lRow > m_items->Count() || m_model->columnCount() == 0)
        return;
    m_model->Sync();
    const int column = std::max(0, m_vfgItems->currentIndex().column());
    const QModelIndex index = m_model->index(lRow - 1, column);
    const auto command =
        (m_multiSelect ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect) |
        QItemSelectionModel::Rows;
    m_vfgItems->selectionModel()->setCurrentIndex(index, command);
    m_vfgItems->scrollTo(index);
}

QVariant zelGridList::Refresh()
{
    QVariant result = false;
    zel::Trail t(this, "Refresh");
    t.Run([&] {
        m_model->Sync();
        m_model->RowsChanged(1, m_items->Count());
        m_vfgItems->viewport()->update();
        EnableControls();
        result = true;
    });
    return result;
}

qint32 zelGridList::CurrentRow() const
{
    const QModelIndex i = m_vfgItems->currentIndex();
    return i.isValid() ? i.row() + 1 : 0;
}

qint32 zelGridList::CurrentColumn() const
{
    const QModelIndex i = m_vfgItems->currentIndex();
    return i.isValid() ? i.column() : 0;
}

// ---------------------------------------------------------------- grid events

void zelGridList::NoteSelectionChange()
{
    ++m_selectionPending;
    if (m_selectionQueued)
        return;
    m_selectionQueued = true;
    // A change that no user input of the grid brought (a host moving the
    // view's current index itself) is reported once control returns.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_selectionQueued = false;
            FlushSelectionEvents();
        },
        Qt::QueuedConnection);
}

void zelGridList::FlushSelectionEvents()
{
    // Each change (of the current cell, of the selection) raises its pair.
    while (m_selectionPending > 0 && !m_busy) {
        --m_selectionPending;
        vfgItems_RowColChange();
    }
}

void zelGridList::vfgItems_RowColChange()
{
    zel::Trail t(this, "vfgItems_RowColChange");
    const QScopedValueRollback<bool> busy(m_busy, true);
    t.Run([&] {
        const qint32 r = CurrentRow();
        if (r < 1 || r > m_items->Count())
            return;
        const auto row = m_items->ItemAt(r);
        emit SelectedItem(row ? row->Key() : QString(), r);
        emit SelectionChanged();
    });
}

void zelGridList::vfgItems_SelChanging(const QList<int> &selected, const QList<int> &deselected)
{
    zel::Trail t(this, "vfgItems_AfterSelChange");
    t.Run([&] {
        for (const int r : deselected)
            if (const auto row = m_items->ItemAt(r))
                row->SetSelectedFlag(false);
        for (const int r : selected)
            if (const auto row = m_items->ItemAt(r))
                row->SetSelectedFlag(true);
    });
}

bool zelGridList::vfgItems_BeforeEdit(qint32 lRow, qint32 lColumn)
{
    bool bCancel = true;
    zel::Trail t(this, "vfgItems_BeforeEdit");
    t.Run([&] {
        m_editing = false;
        const auto col = m_columns->Item(lColumn + 1);
        if (!col || !col->AllowEdit())
            return;
        bCancel = false;
        emit BeforeEdit(lRow, lColumn, bCancel);
        m_editing = !bCancel;
    });
    return !bCancel && m_editing;
}

void zelGridList::vfgItems_AfterEdit(qint32 lRow, qint32 lColumn, const QString &sText)
{
    zel::Trail t(this, "vfgItems_AfterEdit");
    const QScopedValueRollback<bool> committing(m_committing, true);
    t.Run([&] {
        if (!m_editing || m_destroying)
            return;
        m_editing = false;
        const auto row = m_items->ItemAt(lRow);
        if (!row)
            return;
        row->SetCell(lColumn, sText);
        m_model->RowsChanged(lRow, lRow);
        emit EditCell(lRow, lColumn, sText);
        QString text = sText;
        emit EditCellByRef(lRow, lColumn, text);
        if (text != sText)
            row->SetCell(lColumn, text);
        if (m_model->IsColour(lColumn))
            SetColorCells(lRow);
        else
            m_model->RowsChanged(lRow, lRow);
    });
}

void zelGridList::vfgItems_EditCancelled()
{
    m_editing = false;
}

void zelGridList::vfgItems_ToggleCheck(qint32 lRow, qint32 lColumn)
{
    zel::Trail t(this, "vfgItems_ToggleCheck");
    t.Run([&] {
        if (!vfgItems_BeforeEdit(lRow, lColumn))
            return;
        m_editing = false;
        const auto row = m_items->ItemAt(lRow);
        if (!row)
            return;
        if (m_model->IsCheckColumn(lColumn)) {
            row->SetCheckedFlag(!row->Checked());
            m_model->RowsChanged(lRow, lRow);
            emit ItemChecked(lRow, row);
            return;
        }
        const QString text = zelGridModel::TextIsTrue(row->Cell(lColumn)) ? QStringLiteral("False")
                                                                          : QStringLiteral("True");
        m_editing = true;
        vfgItems_AfterEdit(lRow, lColumn, text);
    });
}

void zelGridList::vfgItems_ChooseColour(qint32 lRow, qint32 lColumn)
{
    zel::Trail t(this, "vfgItems_ChooseColour");
    t.Run([&] {
        if (!vfgItems_BeforeEdit(lRow, lColumn))
            return;
        const auto row = m_items->ItemAt(lRow);
        quint32 colour = 0;
        if (row)
            row->CellColour(lColumn, &colour); // the dialog starts at the cell's colour
        if (!row || !zel::platform().ChooseColor(colour, this)) {
            m_editing = false;
            return;
        }
        vfgItems_AfterEdit(lRow, lColumn, QString::number(qint32(colour)));
    });
}

void zelGridList::vfgItems_DblClick()
{
    zel::Trail t(this, "vfgItems_DblClick");
    t.Run([&] { emit DblClick(); });
}

void zelGridList::UserControl_EnterFocus()
{
    zel::Trail t(this, "UserControl_EnterFocus");
    const QScopedValueRollback<bool> busy(m_busy, true);
    t.Run(
        [&] {
            if (!m_editOnFocus || !zel::UserMode(this))
                return;
            m_vfgItems->EditCurrent();
        },
        true);
}

// ---------------------------------------------------------------- layout

void zelGridList::LayoutControl()
{
    if (m_laying)
        return;
    const QScopedValueRollback<bool> guard(m_laying, true);
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] {
        zelGridListLayoutInput in;
        in.Width = zel::PixelsToTwips(width());
        in.Height = zel::PixelsToTwips(height());
        in.Margin = m_margin;
        in.TopMargin = m_topMargin;
        in.ButtonsOnSide = m_buttonsOnSide;
        in.ButtonsVisible = ButtonsVisible();
        in.HasCaption = !m_caption.isEmpty();
        in.BarSize = m_mpbProps->BarLayout().Size;
        in.ButtonWidth = m_mpbProps->ButtonWidth();
        in.ButtonHeight = m_mpbProps->ButtonHeight();
        m_layout = zelLayoutGridList(in);

        m_lblCaption->setVisible(m_layout.CaptionVisible);
        m_lblCaption->setGeometry(toPixels(m_layout.Caption));
        m_vfgItems->setGeometry(toPixels(m_layout.Grid));
        m_mpbProps->setVisible(m_layout.BarVisible);
        if (m_layout.BarVisible)
            m_mpbProps->move(toPixels(m_layout.Bar).topLeft());
        QPushButton *buttons[] = {m_cmdAdd, m_cmdEdit, m_cmdDelete, m_cmdUp, m_cmdDown};
        for (size_t i = 0; i < 5; ++i) {
            buttons[i]->setVisible(m_layout.ButtonVisible[i]);
            if (m_layout.ButtonVisible[i])
                buttons[i]->setGeometry(toPixels(m_layout.Buttons[i]));
        }
    });
    SizeColZero();
}

void zelGridList::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    LayoutControl();
}

bool zelGridList::eventFilter(QObject *watched, QEvent *event)
{
    // A scroll bar coming or going changes the room that column zero fills.
    // The grid's parts may still send events while the list is taken apart.
    if (!m_destroying && watched == m_viewport && event->type() == QEvent::Resize)
        SizeColZero();
    return QWidget::eventFilter(watched, event);
}
