#pragma once

// The toolbars, tools and menus of one main window, on QMainWindow,
// QToolBar, QMenuBar, QMenu and QAction. A host makes the toolbars and
// their tools here, gives the object the main window (NativeControl), and
// hears a click on a tool as ToolClicked and, for a tool with a command,
// CommandClicked; a toolbar the user closes raises ToolbarClosed.
//
//     auto bars = std::make_shared<zelToolbars>();
//     bars->SetNativeControl(mainWindow);
//     auto file = bars->Create("File", "File");
//     file->Tools()->Create("Save", "Save")->SetCommand("file.save");

#include "core/zelKeyedCollection.h"
#include "core/zelShared.h"
#include "grid/zelGridEnumerator.h"
#include "toolbars/zelTool.h"
#include "toolbars/zelToolbar.h"
#include "toolbars/zelTools.h"

#include <QHash>
#include <QPointer>
#include <QVariant>

#include <memory>

#include <QMainWindow>

class QActionGroup;
namespace zel {
class zelImageList;
}

class ZELCTRL_EXPORT zelToolbars : public zel::SharedObject<zelToolbars>
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Item", "0")
    Q_CLASSINFO("DispId.NewEnum", "-4")
    Q_CLASSINFO("DispId.Count", "0x68030001")
    Q_CLASSINFO("DispId.Tools", "0x68030002")
    Q_CLASSINFO("DispId.IgnoreEvents", "0x68030003")
    Q_CLASSINFO("DispId.NativeControl", "0x68030004")
    Q_CLASSINFO("DispId.LeftMargin", "0x68030005")
    Q_CLASSINFO("DispId.TopMargin", "0x68030006")
    Q_CLASSINFO("DispId.RightMargin", "0x68030007")
    Q_CLASSINFO("DispId.BottomMargin", "0x68030008")
    Q_CLASSINFO("DispId.IsToolBar", "0x60030009")
    Q_CLASSINFO("DispId.Create", "0x6003000a")
    Q_CLASSINFO("DispId.Remove", "0x6003000b")
    Q_CLASSINFO("DispId.ToolbarVisible", "0x6003000c")
    Q_CLASSINFO("DispId.Unload", "0x6003000d")
    Q_CLASSINFO("DispId.Clear", "0x6003000e")
    Q_CLASSINFO("DispId.ToolClicked", "1")
    Q_CLASSINFO("DispId.CommandClicked", "2")
    Q_CLASSINFO("DispId.ToolbarClosed", "3")
    Q_PROPERTY(qint32 Count READ Count)
    Q_PROPERTY(std::shared_ptr<zelTools> Tools READ Tools)
    Q_PROPERTY(bool IgnoreEvents READ IgnoreEvents WRITE SetIgnoreEvents)
    Q_PROPERTY(QObject *NativeControl READ NativeControl WRITE SetNativeControl)
    Q_PROPERTY(qint32 LeftMargin READ LeftMargin)
    Q_PROPERTY(qint32 TopMargin READ TopMargin)
    Q_PROPERTY(qint32 RightMargin READ RightMargin)
    Q_PROPERTY(qint32 BottomMargin READ BottomMargin)

public:
    Q_INVOKABLE explicit zelToolbars(QObject *parent = nullptr);
    ~zelToolbars() override;

    // By key or 1-based position; nothing, without an error, when nothing matches.
    Q_INVOKABLE std::shared_ptr<zelToolbar> Item(const QVariant &vKey) const;
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;
    Q_INVOKABLE qint32 Count() const { return m_toolbars.Count(); }
    // Every tool of the application, each key once.
    std::shared_ptr<zelTools> Tools() const { return m_tools; }
    // Whether a toolbar has this key (letter case ignored).
    Q_INVOKABLE bool IsToolBar(const QString &sName) const;
    // A new toolbar, docked at the top after the others. Nothing, and a
    // logged error, for an empty key or one that is taken.
    Q_INVOKABLE std::shared_ptr<zelToolbar> Create(const QString &sKey, const QString &sCaption);
    // Takes the toolbar off the window; its tools stay among Tools. A host
    // that still holds it can add nothing to it. False, and a logged error,
    // when nothing matches.
    Q_INVOKABLE bool Remove(const QVariant &vKey);
    // Shows or hides a toolbar; an unknown key is logged and changes nothing.
    Q_INVOKABLE void ToolbarVisible(const QString &sKey, bool bVisible);
    // Takes every toolbar and menu off the window and lets go of the window,
    // the toolbars and the tools. Raises nothing.
    Q_INVOKABLE void Unload();
    // Every toolbar and tool goes; the window stays. True when done.
    Q_INVOKABLE bool Clear();
    // While true no ToolClicked, CommandClicked or ToolbarClosed is raised.
    // False by default.
    bool IgnoreEvents() const { return m_ignoreEvents; }
    void SetIgnoreEvents(bool v) { m_ignoreEvents = v; }
    // The main window driven; nothing until one is given.
    QObject *NativeControl() const;
    // Takes a QMainWindow, or nothing to let go of the window. Anything else
    // is logged and refused, and the window driven before stays.
    void SetNativeControl(QObject *oControl);
    // The space that docked, visible toolbars (and the menu bar, at the top)
    // take at each edge of the window, in twips.
    qint32 LeftMargin() const;
    qint32 TopMargin() const;
    qint32 RightMargin() const;
    qint32 BottomMargin() const;

    // For the object model.
    //
    // The window while it is one (not while it is going).
    QMainWindow *Window() const { return qobject_cast<QMainWindow *>(m_window.data()); }
    zel::zelImageList &Images() const { return *m_images; }
    // The exclusive group of option buttons named sGroup, made on first use.
    QActionGroup *OptionGroup(const QString &sGroup);
    // A click on a tool, and a toolbar the user closed: the events.
    void ToolTriggered(const zelTool &tool);
    void ToolbarUserClosed(const zelToolbar &toolbar);
    // The toolbar that is the menu bar now gives that up for another one.
    void MenuBarTaken(const zelToolbar *by);
    // Takes tool off every toolbar and menu.
    void HideEverywhere(const zelTool &tool);
    // The toolbars in order, for the saved layout, and the same put in the
    // order of keys (toolbars keys do not name follow in their order).
    void ReorderToolbars(const QStringList &keys);
    const zel::zelKeyedCollection<zelToolbar> &Toolbars() const { return m_toolbars; }

signals:
    void ToolClicked(const QString &sTool);
    void CommandClicked(const QString &sCommand);
    void ToolbarClosed(const QString &sToolbar);

private:
    void releaseAll();

    zel::zelKeyedCollection<zelToolbar> m_toolbars;
    std::shared_ptr<zelTools> m_tools;
    std::unique_ptr<zel::zelImageList> m_images;
    QHash<QString, QActionGroup *> m_groups;
    QPointer<QWidget> m_window;
    bool m_ignoreEvents = false;
};
