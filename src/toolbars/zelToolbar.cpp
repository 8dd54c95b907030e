#include "toolbars/zelToolbar.h"

#include "toolbars/zelToolbars.h"
#include "toolbars/zelTools.h"

#include <QAction>
#include <QEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

namespace {

Qt::ToolBarArea areaOf(ZEL_Toolbar_DockedPositions p)
{
    switch (p) {
    case ZEL_Toolbar_DockedBottom:
        return Qt::BottomToolBarArea;
    case ZEL_Toolbar_DockedLeft:
        return Qt::LeftToolBarArea;
    case ZEL_Toolbar_DockedRight:
        return Qt::RightToolBarArea;
    default:
        return Qt::TopToolBarArea;
    }
}

} // namespace

zelToolbar::zelToolbar(const QString &sKey, const QString &sCaption, zelToolbars *owner)
    : m_key(sKey), m_caption(sCaption), m_owner(owner)
{
    m_tools = std::make_shared<zelTools>(owner, false);
    makeBar();
}

void zelToolbar::makeBar()
{
    m_bar = new QToolBar;
    m_bar->setObjectName(m_key);
    m_bar->setWindowTitle(m_caption);
    m_bar->installEventFilter(this);
    // The window's own menu of toolbars is the user's way to close one.
    connect(m_bar->toggleViewAction(), &QAction::triggered, this, [this](bool checked) {
        if (!checked)
            UserClosed();
        else
            m_visible = true;
    });
    if (!m_menuBar)
        m_tools->SetContainer(m_bar);
}

zelToolbar::~zelToolbar()
{
    Bind(nullptr);
    delete m_bar.data();
}

void zelToolbar::SetCaption(const QString &v)
{
    m_caption = v;
    if (m_bar)
        m_bar->setWindowTitle(v);
}

void zelToolbar::SetVisible(bool v)
{
    m_visible = v;
    applyVisible();
}

void zelToolbar::applyVisible()
{
    if (m_bar && win() && !m_menuBar)
        m_bar->setVisible(m_visible);
    if (m_menuBar && win())
        win()->menuBar()->setVisible(m_visible);
}

ZEL_Toolbar_DockedPositions zelToolbar::DockedPosition() const
{
    if (!win() || !m_bar || m_menuBar)
        return m_dock;
    if (m_bar->isFloating())
        return ZEL_Toolbar_Floating;
    switch (win()->toolBarArea(m_bar)) {
    case Qt::BottomToolBarArea:
        return ZEL_Toolbar_DockedBottom;
    case Qt::LeftToolBarArea:
        return ZEL_Toolbar_DockedLeft;
    case Qt::RightToolBarArea:
        return ZEL_Toolbar_DockedRight;
    default:
        return ZEL_Toolbar_DockedTop;
    }
}

void zelToolbar::SetDockedPosition(ZEL_Toolbar_DockedPositions v)
{
    if (v < ZEL_Toolbar_DockedTop || v > ZEL_Toolbar_Floating)
        v = ZEL_Toolbar_DockedTop;
    m_dock = v;
    Redock();
}

void zelToolbar::Redock()
{
    if (!win() || !m_bar || m_menuBar)
        return;
    if (m_dock == ZEL_Toolbar_Floating) {
        // Qt floats a toolbar only under the user's mouse; a tool window of
        // the main window is what a floated toolbar is.
        const QPoint at = win()->mapToGlobal(QPoint(40, 40));
        win()->removeToolBar(m_bar);
        m_bar->setParent(win(), Qt::Tool);
        m_bar->move(at);
    } else {
        if (m_bar->isWindow())
            m_bar->setWindowFlags(Qt::Widget);
        win()->addToolBar(areaOf(m_dock), m_bar);
    }
    applyVisible();
}

void zelToolbar::SetMenuBar(bool v)
{
    if (v == m_menuBar)
        return;
    if (v && m_owner)
        m_owner->MenuBarTaken(this);
    m_menuBar = v;
    QMainWindow *window = win();
    Bind(nullptr);
    Bind(window);
}

void zelToolbar::Bind(QMainWindow *window)
{
    if (m_window && !win()) {
        // The window is going and takes the toolbar with it (a menu bar's
        // unused one stays ours); its widgets are past being changed.
        m_tools->ForgetContainer();
        if (m_bar && m_bar->parent() == m_window.data())
            m_bar = nullptr;
        m_window = nullptr;
    }
    if (win() && win() != window) {
        m_tools->SetContainer(nullptr);
        if (m_bar) {
            win()->removeToolBar(m_bar);
            m_bar->hide();
            m_bar->setParent(nullptr);
        }
    }
    m_window = window;
    if (!m_bar)
        makeBar(); // the window before took the last one with it
    if (!window) {
        m_tools->SetContainer(m_menuBar ? nullptr : m_bar.data());
        return;
    }
    if (m_menuBar) {
        m_tools->SetContainer(window->menuBar());
        applyVisible();
    } else {
        m_tools->SetContainer(m_bar);
        Redock();
    }
}

void zelToolbar::Detach()
{
    Bind(nullptr);
    m_tools->SetContainer(nullptr);
    m_tools->Detach();
    m_owner = nullptr;
}

bool zelToolbar::LineBreak() const
{
    return win() && m_bar && !m_menuBar && win()->toolBarBreak(m_bar);
}

void zelToolbar::SetLineBreak(bool v)
{
    if (!win() || !m_bar || m_menuBar || m_bar->isWindow() || v == LineBreak())
        return;
    if (v)
        win()->insertToolBarBreak(m_bar);
    else
        win()->removeToolBarBreak(m_bar);
}

void zelToolbar::UserClosed()
{
    m_visible = false;
    if (m_owner)
        m_owner->ToolbarUserClosed(*this);
}

bool zelToolbar::eventFilter(QObject *watched, QEvent *event)
{
    // A floating toolbar closed by its window's close button.
    // The type first: a toolbar that is going still sends events, and is no
    // QToolBar by then.
    if (event->type() == QEvent::Close && watched == m_bar && m_bar->isWindow() && !m_closing) {
        m_closing = true;
        UserClosed();
        m_closing = false;
    }
    return false;
}
