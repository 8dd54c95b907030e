#pragma once

// An ordered, keyed list of tools (letter case ignored). The Tools of a
// zelToolbars hold every tool of the application, each key once; the Tools
// of a toolbar or of a menu tool show some of them, each at most once, and
// a tool may stand in several such lists at the same time.

#include "core/zelKeyedCollection.h"
#include "core/zelShared.h"
#include "grid/zelGridEnumerator.h"
#include "toolbars/zelTool.h"

#include <QPointer>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <memory>

class ZELCTRL_EXPORT zelTools : public zel::SharedObject<zelTools>
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Item", "0")
    Q_CLASSINFO("DispId.NewEnum", "-4")
    Q_PROPERTY(qint32 Count READ Count)

public:
    using Collection = zel::zelKeyedCollection<zelTool>;

    // The owner's list of every tool (isMaster), or a list that a toolbar
    // or menu widget shows.
    zelTools(zelToolbars *owner, bool isMaster, QWidget *container = nullptr);
    ~zelTools() override;

    // A new tool, made among the owner's tools and, for the list of a
    // toolbar or menu, added to it as well. Nothing, and a logged error, for
    // an empty key, a key that is taken, or a list whose toolbar was removed.
    Q_INVOKABLE std::shared_ptr<zelTool>
    Create(const QString &sKey, const QString &sCaption,
           ZEL_Toolbar_ToolTypes eType = ZEL_Toolbar_ToolButton);
    // Shows an existing tool of the owner (by key or object) here, before
    // the 1-based position lBefore (0: at the end). False, and a logged
    // error, for an unknown tool, one that is here already, a menu put into
    // its own child tools, or a list whose toolbar was removed.
    Q_INVOKABLE bool Add(const QVariant &vTool, qint32 lBefore = 0);
    // By key or 1-based position. From the owner's list the tool goes from
    // every toolbar and menu. False, and a logged error, when nothing matches.
    Q_INVOKABLE bool Remove(const QVariant &vKey);
    // By key or 1-based position; nothing, without an error, when nothing matches.
    Q_INVOKABLE std::shared_ptr<zelTool> Item(const QVariant &vKey) const;
    Q_INVOKABLE qint32 Count() const { return m_items.Count(); }
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;
    Q_INVOKABLE void Clear();

    // For the object model.
    //
    // The keys in order.
    QStringList Keys() const;
    // Puts the tools in the order of keys; keys that name none of them are
    // passed over and tools that keys do not name follow in their order.
    void Reorder(const QStringList &keys);
    // Shows the tools in another widget (nothing: in none).
    void SetContainer(QWidget *container);
    QWidget *Container() const { return m_container; }
    // Lets go of a widget that is going, without changing it.
    void ForgetContainer() { m_container = nullptr; }
    // The list belongs to a toolbar that was removed: it takes no more tools.
    void Detach();
    // Whether tool stands here or in a menu below.
    bool Contains(const zelTool *tool) const;
    // The menu tool whose child tools these are.
    void SetMenuTool(const zelTool *tool) { m_menuTool = tool; }
    // Range-for over the tools in order.
    Collection::const_iterator begin() const { return m_items.begin(); }
    Collection::const_iterator end() const { return m_items.end(); }

private:
    bool master() const { return !m_detached && m_isMaster; }
    void show(const std::shared_ptr<zelTool> &tool, qint32 before);
    void showAll();
    void hideAll();
    bool contains(const zelTool *tool, int depth) const;

    Collection m_items;
    QPointer<zelToolbars> m_owner;
    QPointer<QWidget> m_container;
    bool m_isMaster;
    bool m_detached = false;
    const zelTool *m_menuTool = nullptr;
};
