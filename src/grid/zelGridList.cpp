#include "grid/zelGridList.h"

#include "buttons/zelPrpButtons.h"
#include "core/mLog.h"
#include "core/zelConvert.h"
#include "core/zelShared.h"
#include "core/zelTrail.h"
#include "grid/zelGridDelegate_p.h"
#include "grid/zelGridList_p.h"
#include "grid/zelGridModel_p.h"
#include "grid/zelGridSelection_p.h"
#include "grid/zelGridSizing.h"
#include "grid/zelGridView_p.h"
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
    : QWidget(parent), d(std::make_unique<zelGridListPrivate>())
{
    zel::RegisterShared<zelGridColumns>();
    zel::RegisterShared<zelGridRows>();
    zel::RegisterShared<zelGridRow>();
    zel::RegisterShared<zelGridColumn>();

    d->lblCaption = new QLabel(this);
    d->lblCaption->setObjectName(QStringLiteral("lblCaption"));
    d->lblCaption->setVisible(false);

    d->model = new zelGridModel(*d, this);
    d->vfgItems = new zelGridView(d->model, this);
    d->vfgItems->setObjectName(QStringLiteral("vfgItems"));
    d->vfgItems->setModel(d->model);
    d->delegate = new zelGridDelegate(*d, d->model, d->vfgItems);
    d->vfgItems->setItemDelegate(d->delegate);
    d->vfgItems->setSelectionBehavior(QAbstractItemView::SelectRows);
    d->vfgItems->setSelectionMode(QAbstractItemView::SingleSelection);
    d->vfgItems->setEditTriggers(QAbstractItemView::DoubleClicked |
                                 QAbstractItemView::EditKeyPressed |
                                 QAbstractItemView::AnyKeyPressed);
    d->vfgItems->setTabKeyNavigation(false);
    d->vfgItems->setWordWrap(false);
    d->vfgItems->setCornerButtonEnabled(false);
    d->vfgItems->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // Every row has the same height: the view then never measures rows,
    // which keeps lists of a million rows quick.
    QHeaderView *rows = d->vfgItems->verticalHeader();
    rows->setVisible(false);
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(d->vfgItems->fontMetrics().height() + 6);
    QHeaderView *cols = d->vfgItems->horizontalHeader();
    cols->setSectionResizeMode(QHeaderView::Interactive);
    cols->setStretchLastSection(false);
    cols->setHighlightSections(false);
    cols->setSectionsClickable(false);
    // A column is as narrow as its Width says: the style's minimum would
    // widen a check-box column and leave the sized column short of the edge.
    cols->setMinimumSectionSize(0);
    connect(cols, &QHeaderView::sectionResized, this, [this](int i, int, int size) {
        if (!d->applyingWidths && i >= 0 && i < int(d->colWidths.size()))
            d->colWidths[size_t(i)] = zel::PixelsToTwips(size);
    });
    d->selection = new zelGridSelection(*d, this);
    d->selection->Watch();
    connect(d->selection, &zelGridSelection::CurrentRowChanged, this, [this] { EnableControls(); });
    connect(d->selection, &zelGridSelection::Changed, this, [this] { vfgItems_RowColChange(); });
    connect(d->model, &zelGridModel::CellEdited, this,
            [this](qint32 r, qint32 c, const QString &text) { vfgItems_AfterEdit(r, c, text); });
    zelGridView *view = d->vfgItems;
    connect(view, &zelGridView::EditStarting, this,
            [this](qint32 r, qint32 c, bool &allow) { allow = vfgItems_BeforeEdit(r, c); });
    connect(view, &zelGridView::CheckToggling, this,
            [this](qint32 r, qint32 c) { vfgItems_ToggleCheck(r, c); });
    connect(view, &zelGridView::ColourChoosing, this,
            [this](qint32 r, qint32 c) { vfgItems_ChooseColour(r, c); });
    connect(view, &zelGridView::EditEnded, this, [this] { vfgItems_EditCancelled(); });
    connect(view, &zelGridView::GridDoubleClicked, this, [this] { vfgItems_DblClick(); });
    connect(view, &zelGridView::FocusEntered, this, [this] { UserControl_EnterFocus(); });
    connect(view, &zelGridView::InputHandled, d->selection, &zelGridSelection::Flush);
    d->viewport = d->vfgItems->viewport();
    d->viewport->installEventFilter(this);

    auto makeButton = [this](const char *name) {
        auto *b = new QPushButton(this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        b->setVisible(false);
        return b;
    };
    d->cmdAdd = makeButton("cmdAdd");
    d->cmdEdit = makeButton("cmdEdit");
    d->cmdDelete = makeButton("cmdDelete");
    d->cmdUp = makeButton("cmdUp");
    d->cmdDown = makeButton("cmdDown");
    d->cmdUp->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    d->cmdDown->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    d->cmdUp->setToolTip(QStringLiteral("Up"));
    d->cmdDown->setToolTip(QStringLiteral("Down"));
    connect(d->cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    connect(d->cmdEdit, &QPushButton::clicked, this, [this] { cmdEdit_Click(); });
    connect(d->cmdDelete, &QPushButton::clicked, this, [this] { cmdDelete_Click(); });
    connect(d->cmdUp, &QPushButton::clicked, this, [this] { cmdUp_Click(); });
    connect(d->cmdDown, &QPushButton::clicked, this, [this] { cmdDown_Click(); });

    d->mpbProps = new zelPrpButtons(this);
    d->mpbProps->setObjectName(QStringLiteral("mpbProps"));
    connect(d->mpbProps, &zelPrpButtons::Add, this, [this] { mpbProps_Add(); });
    connect(d->mpbProps, &zelPrpButtons::Remove, this, [this] { mpbProps_Remove(); });
    connect(d->mpbProps, &zelPrpButtons::Properties, this, [this] { mpbProps_Properties(); });
    connect(d->mpbProps, &zelPrpButtons::OptionButton, this,
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
    d->destroying = true;
    d->viewport->removeEventFilter(this);
    delete d->vfgItems;
    d->vfgItems = nullptr;
}

QTableView *zelGridList::Grid() const
{
    return d->vfgItems;
}

// ---------------------------------------------------------------- properties

void zelGridList::ApplyLanguage()
{
    const QString lower = d->language.toLower();
    const SideCaptions *c = nullptr;
    if (lower == QLatin1String("german") || lower == QLatin1String("deutsch"))
        c = &German;
    else if (lower == QLatin1String("english"))
        c = &English;
    if (!c)
        return; // another language keeps the captions it had
    d->cmdAdd->setText(QString::fromUtf8(c->add));
    d->cmdEdit->setText(QString::fromUtf8(c->edit));
    d->cmdDelete->setText(QString::fromUtf8(c->remove));
}

QString zelGridList::OptionButtonCaption(qint32 Index) const
{
    return d->mpbProps->OptionButtonCaption(Index);
}

void zelGridList::SetOptionButtonCaption(qint32 Index, const QString &sCaption)
{
    zel::Trail t(this, "OptionButtonCaption Let");
    t.Run([&] { d->mpbProps->SetOptionButtonCaption(Index, sCaption); });
}

std::shared_ptr<zelGridRows> zelGridList::SelectedItems()
{
    auto result = std::make_shared<zelGridRows>();
    zel::Trail t(this, "SelectedItems Get");
    t.Run([&] {
        result = d->selection->SelectedRows();
        d->selectedItems = result;
    });
    return result;
}

std::shared_ptr<zelGridRow> zelGridList::RowData(qint32 lRow) const
{
    return d->items->ItemAt(lRow);
}

void zelGridList::ApplySelectionMode()
{
    d->vfgItems->setSelectionMode(d->multiSelect ? QAbstractItemView::ExtendedSelection
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
    t.Run([&] { result = d->mpbProps->LoadOptionButtonPicture(Index, oPicture); });
    return result;
}

void zelGridList::FocusOnButton(ZEL_PrpButtons eButton)
{
    zel::Trail t(this, "FocusOnButton");
    t.Run([&] {
        if (!d->buttonsOnSide) {
            d->mpbProps->FocusOnButton(eButton);
            return;
        }
        QPushButton *b = eButton == ZEL_PrpButton_Add      ? d->cmdAdd
                         : eButton == ZEL_PrpButton_Remove ? d->cmdDelete
                         : eButton == ZEL_PrpButton_Props  ? d->cmdEdit
                                                           : nullptr;
        if (b && b->isVisibleTo(this) && b->isEnabled())
            b->setFocus(Qt::OtherFocusReason);
    });
}

void zelGridList::SetVisibleButtons()
{
    const qint32 bits = ButtonsVisible();
    d->mpbProps->setVisible(!d->buttonsOnSide && (bits & 0xFF) != 0);
    EnableControls();
}

void zelGridList::EnableControls()
{
    const qint32 on = ButtonsEnabled();
    const qint32 r = CurrentRow();
    const qint32 last = d->items->Count();
    d->cmdAdd->setEnabled(on & ZEL_PrpButton_Add);
    d->cmdEdit->setEnabled(on & ZEL_PrpButton_Props);
    d->cmdDelete->setEnabled(on & ZEL_PrpButton_Remove);
    d->cmdUp->setEnabled(r > 1);
    d->cmdDown->setEnabled(r >= 1 && r < last);
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
        const auto row = d->items->ItemAt(r);
        emit Delete(r, row ? row->Key() : QString());
    });
}

void zelGridList::cmdUp_Click()
{
    zel::Trail t(this, "cmdUp_Click");
    t.Run([&] {
        const qint32 r = CurrentRow();
        if (r > 1 && r <= d->items->Count())
            MoveRow(r, r - 1);
    });
}

void zelGridList::cmdDown_Click()
{
    zel::Trail t(this, "cmdDown_Click");
    t.Run([&] {
        const qint32 r = CurrentRow();
        if (r >= 1 && r < d->items->Count())
            MoveRow(r, r + 1);
    });
}

void zelGridList::MoveRow(qint32 r, qint32 to)
{
    qint32 from = r, target = to;
    if (!d->items->Move(from, target))
        return;
    // Two neighbours trade places: they are shown again where they are,
    // and the current row follows the moved one.
    d->model->RowsChanged(std::min(r, to), std::max(r, to));
    d->selection->Select(to);
    // The host hears of the new current row before it hears of the move.
    d->selection->Flush();
    qint32 lNewRow = to;
    emit RowMoved(r, lNewRow);
    if (lNewRow != to && lNewRow >= 1 && lNewRow <= d->items->Count())
        d->selection->Select(lNewRow);
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
        result = d->columns->Create(sCaption, eAlign);
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
        auto col = d->columns->Create(sCaption, eAlign);
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
        d->vfgItems->setUpdatesEnabled(false);
        const int defaultWidth =
            zel::PixelsToTwips(d->vfgItems->horizontalHeader()->defaultSectionSize());
        std::vector<zelGridColumnFormat> formats;
        std::vector<qint32> widths;
        for (const auto &col : *d->columns) {
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
        d->model->ResetColumns(std::move(formats));
        d->colWidths = std::move(widths);
        ApplySelectionMode();
        ApplyColumnWidths();
        d->vfgItems->setUpdatesEnabled(true);
        SizeColZero();
        if (d->model->HasColourColumns())
            for (qint32 r = 1; r <= d->items->Count(); ++r)
                SetColorCells(r);
        EnableControls();
    });
    d->vfgItems->setUpdatesEnabled(true);
}

void zelGridList::ApplyColumnWidths()
{
    const QScopedValueRollback<bool> guard(d->applyingWidths, true);
    QHeaderView *header = d->vfgItems->horizontalHeader();
    for (size_t i = 0; i < d->colWidths.size(); ++i)
        header->resizeSection(int(i), zel::TwipsToPixels(d->colWidths[i]));
}

void zelGridList::SetColumnWidth(int column, qint32 twips, int pixels)
{
    if (column < 0 || column >= int(d->colWidths.size()))
        return;
    d->colWidths[size_t(column)] = twips;
    const QScopedValueRollback<bool> guard(d->applyingWidths, true);
    d->vfgItems->horizontalHeader()->resizeSection(column, pixels >= 0 ? pixels
                                                                       : zel::TwipsToPixels(twips));
}

qint32 zelGridList::ColumnWidth(int column) const
{
    return column >= 0 && column < int(d->colWidths.size()) ? d->colWidths[size_t(column)] : 0;
}

int zelGridList::GridClientPixels() const
{
    // A shown grid knows its viewport (less a vertical scroll bar); a hidden
    // one has not laid out its scroll bars yet, and its inside is used.
    return d->vfgItems->isVisible() ? d->vfgItems->viewport()->width()
                                    : d->vfgItems->contentsRect().width();
}

qint32 zelGridList::GridClientWidth() const
{
    return zel::PixelsToTwips(GridClientPixels());
}

zelColZeroInput zelGridList::SizingInput() const
{
    zelColZeroInput in;
    in.AutoSize = d->autoSizeColZero;
    in.ColumnCount = d->columns ? d->columns->Count() : 0;
    const int gridCols = d->model->columnCount();
    for (int c = 0; c < gridCols; ++c) {
        in.Widths.push_back(ColumnWidth(c));
        in.Boolean.push_back(d->model->IsBoolean(c));
    }
    if (d->columns)
        for (const auto &col : *d->columns)
            in.ObjectWidths.push_back(col->Width());
    in.ClientWidth = GridClientWidth();
    return in;
}

void zelGridList::SizeColZero()
{
    const QString &name = zelGridTrailName("SizeColZero");
    zel::Trail t(name);
    t.Run([&] {
        const zelColZeroInput in = SizingInput();
        d->sized = in;
        if (!d->autoSizeColZero || !d->columns)
            return;
        mLog::TraceLog(name, QStringLiteral("m_oColumns.Count: "), QString::number(in.ColumnCount));
        const int gridCols = int(in.Widths.size());
        if (in.ColumnCount <= 1 || gridCols < 1)
            return;
        const zelColZeroResult r = zelSizeColZero(in);
        mLog::TraceLog(name, QStringLiteral("lSizeCol = "), QString::number(r.SizeCol));
        if (r.SizeCol < 0)
            return;
        mLog::TraceLog(name, QStringLiteral("Grd Width:"), QString::number(in.ClientWidth));
        mLog::TraceLog(name, QStringLiteral("Col Width:"), QString::number(r.ObjectWidth));
        mLog::TraceLog(name, QStringLiteral("Sum Width:"), QString::number(r.OtherWidth));
        const qint32 twips = r.Widths[size_t(r.SizeCol)];
        if (!r.Fills) {
            SetColumnWidth(r.SizeCol, twips);
        } else {
            // Filling the room: in pixels it takes exactly what the others
            // leave, whatever each width rounded to.
            int otherPixels = 0;
            for (int c = 0; c < gridCols; ++c)
                if (c != r.SizeCol)
                    otherPixels += d->vfgItems->horizontalHeader()->sectionSize(c);
            SetColumnWidth(r.SizeCol, twips, std::max(0, GridClientPixels() - otherPixels));
        }
        d->sized = SizingInput();
    });
}

// ---------------------------------------------------------------- layout

void zelGridList::LayoutControl()
{
    if (d->laying)
        return;
    const QScopedValueRollback<bool> guard(d->laying, true);
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] {
        zelGridListLayoutInput in;
        in.Width = zel::PixelsToTwips(width());
        in.Height = zel::PixelsToTwips(height());
        in.Margin = d->margin;
        in.TopMargin = d->topMargin;
        in.ButtonsOnSide = d->buttonsOnSide;
        in.ButtonsVisible = ButtonsVisible();
        in.HasCaption = !d->caption.isEmpty();
        in.BarSize = d->mpbProps->BarLayout().Size;
        in.ButtonWidth = d->mpbProps->ButtonWidth();
        in.ButtonHeight = d->mpbProps->ButtonHeight();
        d->layout = zelLayoutGridList(in);

        d->lblCaption->setVisible(d->layout.CaptionVisible);
        d->lblCaption->setGeometry(toPixels(d->layout.Caption));
        d->vfgItems->setGeometry(toPixels(d->layout.Grid));
        d->mpbProps->setVisible(d->layout.BarVisible);
        if (d->layout.BarVisible)
            d->mpbProps->move(toPixels(d->layout.Bar).topLeft());
        QPushButton *buttons[] = {d->cmdAdd, d->cmdEdit, d->cmdDelete, d->cmdUp, d->cmdDown};
        for (size_t i = 0; i < 5; ++i) {
            buttons[i]->setVisible(d->layout.ButtonVisible[i]);
            if (d->layout.ButtonVisible[i])
                buttons[i]->setGeometry(toPixels(d->layout.Buttons[i]));
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
    if (!d->destroying && watched == d->viewport && event->type() == QEvent::Resize)
        SizeColZero();
    return QWidget::eventFilter(watched, event);
}
