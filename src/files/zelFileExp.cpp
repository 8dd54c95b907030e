#include "files/zelFileExp.h"

#include "core/zelConvert.h"
#include "core/zelFieldFrame.h"
#include "core/zelTrail.h"
#include "files/zelFileListModel_p.h"
#include "lists/zelCombo.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QDir>
#include <QFileSystemModel>
#include <QFrame>
#include <QHeaderView>
#include <QMouseEvent>
#include <QTreeView>

ZEL_REGISTER_PROGID(zelFileExp);

zelFileExp::zelFileExp(QWidget *parent)
    : zelPaneContract(parent), m_filters(std::make_shared<zelFileFilters>()),
      m_fileList(std::make_shared<zelFileList>())
{
    zel::RegisterShared<zelFileFilters>();
    zel::RegisterShared<zelFileFilter>();
    zel::RegisterShared<zelFileList>();
    zel::RegisterShared<zelFile>();

    m_fraControl = new QFrame(this);
    m_fraControl->setObjectName(QStringLiteral("fraControl"));

    // Folders only, filled as the user opens them, on the model's own thread.
    m_folders = new QFileSystemModel(this);
    m_folders->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    m_folders->setReadOnly(true);
    m_folders->setRootPath(QDir::rootPath());
    m_ftvImport = new QTreeView(m_fraControl);
    m_ftvImport->setObjectName(QStringLiteral("ftvImport"));
    m_ftvImport->setModel(m_folders);
    m_ftvImport->setHeaderHidden(true);
    for (int c = 1; c < m_folders->columnCount(); ++c)
        m_ftvImport->hideColumn(c);
    connect(m_ftvImport->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { ftvImport_Change(); });

    m_rows = new zelFileListModel(this);
    m_rows->SetList(m_fileList);
    m_lvwImport = new QTreeView(m_fraControl);
    m_lvwImport->setObjectName(QStringLiteral("lvwImport"));
    m_lvwImport->setRootIsDecorated(false);
    m_lvwImport->setItemsExpandable(false);
    m_lvwImport->setUniformRowHeights(true);
    m_lvwImport->setAllColumnsShowFocus(true);
    m_lvwImport->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_lvwImport->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_lvwImport->setModel(m_rows);
    // Fixed widths: sizing to the contents would read every row of a big folder.
    m_lvwImport->header()->setStretchLastSection(true);
    m_lvwImport->header()->resizeSection(0, 150);
    m_lvwImport->header()->resizeSection(1, 64);
    connect(m_lvwImport->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_listing && !m_selecting)
            UpdateSelections();
    });
    watchList(m_fileList);

    m_mcbFilters = new zelCombo(m_fraControl);
    m_mcbFilters->setObjectName(QStringLiteral("mcbFilters"));
    m_mcbFilters->SetColumns(QStringLiteral("~"));
    m_mcbFilters->SetEnabled(true);
    m_mcbFilters->setVisible(false);
    connect(m_mcbFilters, &zelCombo::Changed, this, &zelFileExp::mcbFilters_Changed);

    m_txtSplitter = new QFrame(m_fraControl);
    m_txtSplitter->setObjectName(QStringLiteral("txtSplitter"));
    m_txtSplitter->setCursor(Qt::SplitHCursor);
    m_txtSplitter->setAutoFillBackground(true);
    m_txtSplitter->installEventFilter(this);
    paintSplitter(zel::SysButtonFace);

    setMinimumSize(zel::TwipsToPixels(zel::FileExpMinWidth),
                   zel::TwipsToPixels(zel::FileExpMinHeight));
    m_fraControl->setAutoFillBackground(true);
    ApplyColours();
    // The explorer frames itself: a host that makes it in code gets no header.
    SetPaneStyle(ZEL_PaneStyle_None);
}

zelFileExp::~zelFileExp()
{
    // The list outlives the control in a host's hands: it must not call back.
    if (m_fileList)
        disconnect(m_fileList.get(), nullptr, this, nullptr);
}

const zel::zelPropertyTable &zelFileExp::Properties() const
{
    using F = zelFileExp;
    using zel::Prop;
    static const zel::zelPropertyTable table(
        PaneProperties({ZEL_PaneStyle_None, /* CanCancel and CouldCancel persisted */ false}),
        {
            Prop("ShowFilters", &F::ShowFilters, &F::SetShowFilters).Persist().Default(false),
            Prop("AutoSelect", &F::AutoSelect, &F::SetAutoSelect).Persist().Default(false),
            Prop("MultiSelect", &F::MultiSelect, &F::SetMultiSelect).Persist().Default(true),
            Prop("SplitterLeft", &F::SplitterLeft, &F::SetSplitterLeft)
                .Persist()
                .Default(qint32(3300)),
            Prop("AppName", &F::AppName),
            Prop("SelectedFolder", &F::SelectedFolder),
        });
    return table;
}

QWidget *zelFileExp::ColouredWidget()
{
    return m_fraControl;
}

QString zelFileExp::AppName() const
{
    return m_appName.isEmpty() ? QStringLiteral("Quorvane") : m_appName;
}

void zelFileExp::SetAutoSelect(bool v)
{
    Let("AutoSelect", m_autoSelect, v);
}

void zelFileExp::SetMultiSelect(bool v)
{
    LetThen("MultiSelect", m_multiSelect, v, [&] {
        m_lvwImport->setSelectionMode(v ? QAbstractItemView::ExtendedSelection
                                        : QAbstractItemView::SingleSelection);
        // One selected row at most from now on: the current one keeps it
        // when it is selected, else the first selected row.
        QItemSelectionModel *selection = m_lvwImport->selectionModel();
        const QModelIndexList rows = selection->selectedRows();
        if (!v && rows.size() > 1) {
            const QModelIndex current = m_lvwImport->currentIndex();
            const QModelIndex keep =
                current.isValid() && selection->isRowSelected(current.row(), {}) ? current
                                                                                 : rows.first();
            selection->select(keep,
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        }
    });
}

void zelFileExp::SetShowFilters(bool v)
{
    LetThen("ShowFilters", m_showFilters, v, [&] {
        m_mcbFilters->setVisible(v);
        if (m_laidOut)
            UserControl_Resize(true);
    });
}

void zelFileExp::SetSplitterLeft(qint32 v)
{
    Let(
        "SplitterLeft", m_splitterLeft,
        [&] { return zel::ClampSplitter(v, m_laidOut ? m_layout.Frame.width() : 0); },
        [&] {
            if (m_laidOut)
                UserControl_Resize(true);
            emit SplitterChanged(m_splitterLeft);
        });
}

void zelFileExp::SetFilters(const std::shared_ptr<zelFileFilters> &v)
{
    zel::Trail t(this, "Filters Set");
    t.Run([&] {
        if (!v)
            throw zelError(91, t.Name(), zelError::StandardDescription(91));
        m_filters = v;
    });
}

void zelFileExp::SetFileList(const std::shared_ptr<zelFileList> &v)
{
    zel::Trail t(this, "FileList Set");
    t.Run([&] {
        if (!v)
            throw zelError(91, t.Name(), zelError::StandardDescription(91));
        if (m_listing)
            throw zelError(zelError::InvalidProcedureCall, t.Name(),
                           QStringLiteral("The file list cannot change while a folder is listed"));
        watchList(v);
        m_fileList = v;
        m_rows->SetList(v);
        selectRowsFromFlags();
    });
}

void zelFileExp::watchList(const std::shared_ptr<zelFileList> &list)
{
    if (m_fileList)
        disconnect(m_fileList.get(), nullptr, this, nullptr);
    connect(list.get(), &zelFileList::MembersChanged, this, &zelFileExp::fileListChanged);
}

void zelFileExp::fileListChanged()
{
    // A host added or removed files: the rows follow the list, and the
    // files' flags say which rows are selected.
    if (m_listing)
        return;
    const zelFile::Ptr current = m_rows->FileAt(m_lvwImport->currentIndex().row());
    m_rows->Reload();
    selectRowsFromFlags();
    // The current row stays on its file while the file is there.
    const qint32 position = current ? m_fileList->IndexOf(current->FullPath()) : 0;
    if (position > 0)
        m_lvwImport->selectionModel()->setCurrentIndex(m_rows->index(position - 1, 0),
                                                       QItemSelectionModel::NoUpdate);
}

void zelFileExp::Initialize(const QString &sAppName, const QString &sLanguage,
                            const QString &sHelpFile)
{
    Q_UNUSED(sLanguage);
    Q_UNUSED(sHelpFile);
    zel::Trail t(this, "Initialize");
    t.Run([&] {
        if (m_initialized)
            return;
        m_initialized = true;
        m_appName = sAppName;
        m_filters->Clear();
        m_mcbFilters->Clear();
        SetCanBack(true);
    });
}

void zelFileExp::resizeEvent(QResizeEvent *event)
{
    zelPaneContract::resizeEvent(event);
    UserControl_Resize(false);
}

void zelFileExp::UserControl_Resize(bool force)
{
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] {
        if (!force && m_laidOut && size() == m_lastSize)
            return;
        m_lastSize = size();
        m_layout = zel::LayoutFileExp(zel::PixelsToTwips(width()), zel::PixelsToTwips(height()),
                                      m_splitterLeft, m_showFilters, zelFrameHeight);
        m_splitterLeft = m_layout.Splitter.left();
        m_laidOut = true;
        m_fraControl->setGeometry(zel::TwipsToPixels(m_layout.Frame));
        m_txtSplitter->setGeometry(zel::TwipsToPixels(m_layout.Splitter));
        m_ftvImport->setGeometry(zel::TwipsToPixels(m_layout.Tree));
        m_lvwImport->setGeometry(zel::TwipsToPixels(m_layout.List));
        if (m_showFilters)
            m_mcbFilters->setGeometry(zel::TwipsToPixels(m_layout.Filters));
    });
}

bool zelFileExp::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_txtSplitter && txtSplitter_Mouse(event))
        return true;
    return zelPaneContract::eventFilter(watched, event);
}

void zelFileExp::paintSplitter(quint32 colour)
{
    m_splitterColor = colour;
    QPalette p = m_txtSplitter->palette();
    p.setColor(QPalette::Window, zel::ToQColor(colour));
    m_txtSplitter->setPalette(p);
}

bool zelFileExp::txtSplitter_Mouse(QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove &&
        type != QEvent::MouseButtonRelease)
        return false;
    const char *name = type == QEvent::MouseButtonPress ? "txtSplitter_MouseDown"
                       : type == QEvent::MouseMove      ? "txtSplitter_MouseMove"
                                                        : "txtSplitter_MouseUp";
    zel::Trail t(this, name);
    t.Run([&] {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (type == QEvent::MouseButtonPress) {
            // The workspace colour is the drag flag: nothing else marks a drag.
            m_splitterAtPress = m_splitterLeft;
            paintSplitter(zel::SysAppWorkspace);
        } else if (type == QEvent::MouseMove) {
            if (m_splitterColor != zel::SysAppWorkspace)
                return;
            const qint64 x = zel::PixelsToTwips(qRound(mouse->position().x()));
            m_splitterLeft = zel::ClampSplitter(m_splitterLeft + x, m_layout.Frame.width());
            m_txtSplitter->move(zel::TwipsToPixels(m_splitterLeft), m_txtSplitter->y());
        } else {
            paintSplitter(zel::SysButtonFace);
            UserControl_Resize(true);
            m_ftvImport->setFocus();
            if (m_splitterLeft != m_splitterAtPress) {
                m_splitterAtPress = m_splitterLeft;
                emit SplitterChanged(m_splitterLeft);
            }
        }
    });
    return true;
}
