#include "toolbars/zelTools.h"

#include "core/zelTrail.h"
#include "toolbars/zelToolbars.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace {

// Deep enough for any menu a person can open; a deeper chain is a loop.
constexpr int MaxMenuDepth = 64;

zelError refusal(const zel::Trail &t, const QString &what)
{
    return zelError(zelError::InvalidProcedureCall, t.Name(), what);
}

} // namespace

zelTools::zelTools(zelToolbars *owner, bool isMaster, QWidget *container)
    : m_owner(owner), m_container(container), m_isMaster(isMaster)
{
    zel::RegisterShared<zelTools>();
    zel::RegisterShared<zelTool>();
}

zelTools::~zelTools()
{
    hideAll();
}

std::shared_ptr<zelTool> zelTools::Create(const QString &sKey, const QString &sCaption,
                                          ZEL_Toolbar_ToolTypes eType)
{
    zel::Trail t(this, "Create");
    std::shared_ptr<zelTool> made;
    t.Run([&] {
        if (m_detached || !m_owner)
            throw refusal(t, QStringLiteral("The toolbar of \"%1\" was removed").arg(sKey));
        if (sKey.isEmpty())
            throw refusal(t, QStringLiteral("A tool needs a key"));
        if (eType < ZEL_Toolbar_ToolButton || eType > ZEL_Toolbar_ToolLabel)
            throw zelError(zelError::InvalidPropertyValue, t.Name(),
                           QStringLiteral("No tool type %1").arg(int(eType)));
        const auto &all = m_owner->Tools();
        if (all->m_items.ContainsKey(sKey))
            throw zelError(457, t.Name(),
                           QStringLiteral("The tool key \"%1\" is used already").arg(sKey));
        auto tool = std::make_shared<zelTool>(sKey, eType, m_owner.data());
        tool->SetCaption(sCaption);
        all->m_items.Add(tool, sKey);
        if (!m_isMaster) {
            m_items.Add(tool, sKey);
            show(tool, 0);
        }
        made = tool;
    });
    return made;
}

bool zelTools::Add(const QVariant &vTool, qint32 lBefore)
{
    zel::Trail t(this, "Add");
    bool added = false;
    t.Run([&] {
        if (m_detached || !m_owner || m_isMaster)
            throw refusal(t, m_isMaster ? QStringLiteral("Tools are made here with Create")
                                        : QStringLiteral("The toolbar was removed"));
        const auto &all = m_owner->Tools()->m_items;
        std::shared_ptr<zelTool> tool;
        if (auto *o = qobject_cast<zelTool *>(zel::ObjectOf(vTool)))
            tool = all.ItemByKey(o->Key()).get() == o ? all.ItemByKey(o->Key()) : nullptr;
        else
            tool = all.ItemByKey(vTool.toString());
        if (!tool)
            throw refusal(t, QStringLiteral("No tool \"%1\"").arg(vTool.toString().left(80)));
        if (m_items.ContainsKey(tool->Key()))
            throw zelError(457, t.Name(),
                           QStringLiteral("The tool \"%1\" is here already").arg(tool->Key()));
        // A menu that held itself, at any depth, would open without end.
        if (m_menuTool &&
            (tool.get() == m_menuTool || (tool->Tools() && tool->Tools()->Contains(m_menuTool))))
            throw refusal(t, QStringLiteral("A menu cannot hold itself"));
        if (lBefore < 0 || lBefore > m_items.Count() || !m_items.Add(tool, tool->Key(), lBefore))
            throw zelError(zelError::SubscriptOutOfRange, t.Name(),
                           QStringLiteral("No position %1").arg(lBefore));
        show(tool, lBefore);
        added = true;
    });
    return added;
}

bool zelTools::Remove(const QVariant &vKey)
{
    zel::Trail t(this, "Remove");
    bool removed = false;
    t.Run([&] {
        const auto tool = m_items.Item(vKey);
        if (!tool)
            throw refusal(t, QStringLiteral("No tool \"%1\"").arg(vKey.toString().left(80)));
        if (m_container)
            m_container->removeAction(tool->Action());
        m_items.RemoveKey(tool->Key());
        if (m_isMaster && m_owner)
            m_owner->HideEverywhere(*tool);
        if (m_isMaster)
            tool->Release();
        removed = true;
    });
    return removed;
}

std::shared_ptr<zelTool> zelTools::Item(const QVariant &vKey) const
{
    try {
        return m_items.Item(vKey);
    } catch (...) {
        return {};
    }
}

std::shared_ptr<zelGridEnumerator> zelTools::NewEnum() const
{
    return zelGridEnumerator::Make(m_items.NewEnum());
}

void zelTools::Clear()
{
    zel::Trail t(this, "Clear");
    t.Run([&] {
        hideAll();
        if (m_isMaster) {
            for (const auto &tool : m_items) {
                if (m_owner)
                    m_owner->HideEverywhere(*tool);
                tool->Release();
            }
        }
        m_items.Clear();
    });
}

QStringList zelTools::Keys() const
{
    QStringList keys;
    for (const auto &tool : m_items)
        keys << tool->Key();
    return keys;
}

void zelTools::Reorder(const QStringList &keys)
{
    std::vector<std::shared_ptr<zelTool>> order;
    QSet<const zelTool *> taken;
    for (const QString &key : keys) {
        auto tool = m_items.ItemByKey(key);
        if (tool && !taken.contains(tool.get())) {
            taken.insert(tool.get());
            order.push_back(tool);
        }
    }
    for (const auto &tool : m_items)
        if (!taken.contains(tool.get()))
            order.push_back(tool);
    hideAll();
    m_items.Clear();
    for (const auto &tool : order)
        m_items.Add(tool, tool->Key());
    showAll();
}

void zelTools::SetContainer(QWidget *container)
{
    if (container == m_container)
        return;
    hideAll();
    m_container = container;
    showAll();
}

void zelTools::Detach()
{
    m_detached = true;
}

bool zelTools::Contains(const zelTool *tool) const
{
    return contains(tool, 0);
}

// Whether tool stands here or in a menu below.
bool zelTools::contains(const zelTool *tool, int depth) const
{
    if (depth > MaxMenuDepth)
        return true;
    for (const auto &t : m_items) {
        if (tool && t.get() == tool)
            return true;
        if (t->Tools() && t->Tools()->contains(tool, depth + 1))
            return true;
    }
    return false;
}

void zelTools::show(const std::shared_ptr<zelTool> &tool, qint32 before)
{
    if (!m_container)
        return;
    const auto next = before > 0 ? m_items.ItemAt(before + 1) : nullptr;
    m_container->insertAction(next ? next->Action() : nullptr, tool->Action());
    // On a toolbar a menu opens at once, as it does in a menu bar.
    if (auto *bar = qobject_cast<QToolBar *>(m_container.data()))
        if (auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(tool->Action())))
            if (tool->Type() == ZEL_Toolbar_ToolMenu)
                button->setPopupMode(QToolButton::InstantPopup);
}

void zelTools::showAll()
{
    for (qint32 i = 1; i <= m_items.Count(); ++i)
        show(m_items.ItemAt(i), 0);
}

void zelTools::hideAll()
{
    if (!m_container)
        return;
    for (const auto &tool : m_items)
        m_container->removeAction(tool->Action());
}
