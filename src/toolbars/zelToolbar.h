#pragma once

// One toolbar of an application's main window: a key fixed when it is made,
// a caption, whether it shows, where it docks, and the tools it shows. A
// toolbar may stand for the main window's menu bar instead (MenuBar); its
// menu tools are then the menus of the bar. Made by zelToolbars::Create.

#include "core/zelShared.h"
#include "toolbars/zelToolbarEnums.h"

#include <QPointer>
#include <QString>

#include <memory>

#include <QMainWindow>
#include <QToolBar>

class zelTools;
class zelToolbars;

class ZELCTRL_EXPORT zelToolbar : public zel::SharedObject<zelToolbar>
{
    Q_OBJECT
    Q_PROPERTY(QString Key READ Key)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(bool Visible READ Visible WRITE SetVisible)
    Q_PROPERTY(
        ZEL_Toolbar_DockedPositions DockedPosition READ DockedPosition WRITE SetDockedPosition)
    Q_PROPERTY(bool MenuBar READ MenuBar WRITE SetMenuBar)
    Q_PROPERTY(std::shared_ptr<zelTools> Tools READ Tools)

public:
    zelToolbar(const QString &sKey, const QString &sCaption, zelToolbars *owner);
    ~zelToolbar() override;

    QString Key() const { return m_key; }
    QString Caption() const { return m_caption; }
    void SetCaption(const QString &v);
    // True by default. A toolbar shows only while its toolbars drive a window.
    bool Visible() const { return m_visible; }
    void SetVisible(bool v);
    // ZEL_Toolbar_DockedTop by default; where the user left it otherwise.
    ZEL_Toolbar_DockedPositions DockedPosition() const;
    void SetDockedPosition(ZEL_Toolbar_DockedPositions v);
    // False by default. At most one toolbar of a window is its menu bar:
    // making one the menu bar makes the one before a toolbar again.
    bool MenuBar() const { return m_menuBar; }
    void SetMenuBar(bool v);
    std::shared_ptr<zelTools> Tools() const { return m_tools; }

    // For the object model.
    //
    // Puts the toolbar on window (nothing: takes it off the window it is on).
    void Bind(QMainWindow *window);
    // Taken off its window for good: its tools take no more tools.
    void Detach();
    // Whether a line of toolbars starts with this one.
    bool LineBreak() const;
    void SetLineBreak(bool v);
    // Docks again at the end of its area (the order of toolbars is the order
    // they are docked in).
    void Redock();
    QToolBar *Bar() const { return m_bar; }
    // The user hid the toolbar: the owner hears of it.
    void UserClosed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applyVisible();
    void makeBar();
    // The window while it is one: a main window that is going (its children
    // go first) is only a QWidget by then and is left alone.
    QMainWindow *win() const { return qobject_cast<QMainWindow *>(m_window.data()); }

    QString m_key, m_caption;
    QPointer<zelToolbars> m_owner;
    QPointer<QToolBar> m_bar;
    QPointer<QWidget> m_window;
    std::shared_ptr<zelTools> m_tools;
    ZEL_Toolbar_DockedPositions m_dock = ZEL_Toolbar_DockedTop;
    bool m_visible = true;
    bool m_menuBar = false;
    bool m_closing = false;
};
