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
    : m_key(sKey), m_owner(owner), m_bar(new QToolBar)
{
    m_bar->setObjectName(sKey);
    m_bar->installEventFilter(this);
    m_tools = std::make_shared<zelTools>(owner, false, m_bar);
    SetCaption(sCaption);
    // The window's own menu of toolbars is the user's way to close one.
    connect(m_bar->toggleViewAction(), &QAction::triggered, this, [this](bool checked) {
        if (!checked)
            UserClosed();
        else
            m_visible = true;
    });
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
    if (m_bar && m_window && !m_menuBar)
        m_bar->setVisible(m_visible);
    if (m_menuBar && m_window)
        m_window->menuBar()->setVisible(m_visible);
}

ZEL_Toolbar_DockedPositions zelToolbar::DockedPosition() const
{
    if (!m_window || !m_bar || m_menuBar)
        return m_dock;
    if (m_bar->isFloating())
        return ZEL_Toolbar_Floating;
    switch (m_window->toolBarArea(m_bar)) {
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
    if (!m_window || !m_bar || m_menuBar)
        return;
    if (m_dock == ZEL_Toolbar_Floating) {
        // Qt floats a toolbar only under the user's mouse; a tool window of
        // the main window is what a floated toolbar is.
        const QPoint at = m_window->mapToGlobal(QPoint(40, 40));
        m_window->removeToolBar(m_bar);
        m_bar->setParent(m_window, Qt::Tool);
        m_bar->move(at);
    } else {
        if (m_bar->isWindow())
            m_bar->setWindowFlags(Qt::Widget);
        m_window->addToolBar(areaOf(m_dock), m_bar);
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
    QMainWindow *window = m_window;
    Bind(nullptr);
    Bind(window);
}

void zelToolbar::Bind(QMainWindow *window)
{
    if (m_window && m_window != window) {
        m_tools->SetContainer(nullptr);
        if (m_bar) {
            m_window->removeToolBar(m_bar);
            m_bar->hide();
            m_bar->setParent(nullptr);
        }
    }
    m_window = window;
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
    return m_window && m_bar && !m_menuBar && m_window->toolBarBreak(m_bar);
}

void zelToolbar::SetLineBreak(bool v)
{
    if (!m_window || !m_bar || m_menuBar || m_bar->isWindow() || v == LineBreak())
        return;
    if (v)
        m_window->insertToolBarBreak(m_bar);
    else
        m_window->removeToolBarBreak(m_bar);
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
    if (watched == m_bar && event->type() == QEvent::Close && m_bar->isWindow() && !m_closing) {
        m_closing = true;
        UserClosed();
        m_closing = false;
    }
    return false;
}
