#include "toolbars/zelToolbars.h"

#include "core/zelTrail.h"
#include "lists/zelImageList.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

ZEL_REGISTER_PROGID(zelToolbars);

namespace {

zelError refusal(const zel::Trail &t, const QString &what)
{
    return zelError(zelError::InvalidProcedureCall, t.Name(), what);
}

} // namespace

zelToolbars::zelToolbars(QObject *parent)
    : SharedObject(parent), m_images(std::make_unique<zel::zelImageList>())
{
    zel::RegisterShared<zelToolbars>();
    zel::RegisterShared<zelToolbar>();
    zel::RegisterShared<zelTools>();
    zel::RegisterShared<zelTool>();
    zel::RegisterShared<zelGridEnumerator>();
    m_tools = std::make_shared<zelTools>(this, true);
}

zelToolbars::~zelToolbars()
{
    releaseAll();
}

std::shared_ptr<zelToolbar> zelToolbars::Item(const QVariant &vKey) const
{
    try {
        return m_toolbars.Item(vKey);
    } catch (...) {
        return {};
    }
}

std::shared_ptr<zelGridEnumerator> zelToolbars::NewEnum() const
{
    return zelGridEnumerator::Make(m_toolbars.NewEnum());
}

bool zelToolbars::IsToolBar(const QString &sName) const
{
    return m_toolbars.ContainsKey(sName);
}

std::shared_ptr<zelToolbar> zelToolbars::Create(const QString &sKey, const QString &sCaption)
{
    zel::Trail t(this, "Create");
    std::shared_ptr<zelToolbar> made;
    t.Run([&] {
        if (sKey.isEmpty())
            throw refusal(t, QStringLiteral("A toolbar needs a key"));
        if (m_toolbars.ContainsKey(sKey))
            throw zelError(457, t.Name(),
                           QStringLiteral("The toolbar key \"%1\" is used already").arg(sKey));
        auto bar = std::make_shared<zelToolbar>(sKey, sCaption, this);
        m_toolbars.Add(bar, sKey);
        bar->Bind(Window());
        made = bar;
    });
    return made;
}

bool zelToolbars::Remove(const QVariant &vKey)
{
    zel::Trail t(this, "Remove");
    bool removed = false;
    t.Run([&] {
        const auto bar = m_toolbars.Item(vKey);
        if (!bar)
            throw refusal(t, QStringLiteral("No toolbar \"%1\"").arg(vKey.toString().left(80)));
        m_toolbars.RemoveKey(bar->Key());
        bar->Detach();
        removed = true;
    });
    return removed;
}

void zelToolbars::ToolbarVisible(const QString &sKey, bool bVisible)
{
    zel::Trail t(this, "ToolbarVisible");
    t.Run([&] {
        const auto bar = m_toolbars.ItemByKey(sKey);
        if (!bar)
            throw refusal(t, QStringLiteral("No toolbar \"%1\"").arg(sKey.left(80)));
        bar->SetVisible(bVisible);
    });
}

void zelToolbars::Unload()
{
    zel::Trail t(this, "Unload");
    t.Run([&] {
        releaseAll();
        m_window = nullptr;
    });
}

bool zelToolbars::Clear()
{
    zel::Trail t(this, "Clear");
    return t.Run([&] { releaseAll(); });
}

void zelToolbars::releaseAll()
{
    for (const auto &bar : m_toolbars)
        bar->Detach();
    m_toolbars.Clear();
    m_tools->Clear();
    qDeleteAll(m_groups);
    m_groups.clear();
}

QObject *zelToolbars::NativeControl() const
{
    return Window();
}

void zelToolbars::SetNativeControl(QObject *oControl)
{
    zel::Trail t(this, "NativeControl Set");
    t.Run([&] {
        auto *window = qobject_cast<QMainWindow *>(oControl);
        if (oControl && !window)
            throw zelError(zelError::InvalidPropertyValue, t.Name(),
                           QStringLiteral("A %1 is no main window")
                               .arg(QString::fromLatin1(oControl->metaObject()->className())));
        if (window == m_window)
            return;
        m_window = window;
        for (const auto &bar : m_toolbars)
            bar->Bind(window);
    });
}

namespace {

// The extent of the visible, docked toolbars of one area, in pixels.
int extent(QMainWindow *w, const zel::zelKeyedCollection<zelToolbar> &bars, Qt::ToolBarArea area)
{
    int space = 0;
    for (const auto &bar : bars) {
        QToolBar *tb = bar->Bar();
        if (!tb || bar->MenuBar() || tb->isWindow() || !tb->isVisibleTo(w) ||
            w->toolBarArea(tb) != area)
            continue;
        const QRect g = tb->geometry();
        switch (area) {
        case Qt::TopToolBarArea:
            space = std::max(space, g.bottom() + 1);
            break;
        case Qt::LeftToolBarArea:
            space = std::max(space, g.right() + 1);
            break;
        case Qt::RightToolBarArea:
            space = std::max(space, w->width() - g.left());
            break;
        default:
            space = std::max(space, w->height() - g.top());
        }
    }
    if (area == Qt::TopToolBarArea && w->menuWidget() && w->menuWidget()->isVisibleTo(w))
        space = std::max(space, w->menuWidget()->geometry().bottom() + 1);
    return space;
}

} // namespace

qint32 zelToolbars::LeftMargin() const
{
    QMainWindow *w = Window();
    return w ? zel::PixelsToTwips(extent(w, m_toolbars, Qt::LeftToolBarArea)) : 0;
}

qint32 zelToolbars::TopMargin() const
{
    QMainWindow *w = Window();
    return w ? zel::PixelsToTwips(extent(w, m_toolbars, Qt::TopToolBarArea)) : 0;
}

qint32 zelToolbars::RightMargin() const
{
    QMainWindow *w = Window();
    return w ? zel::PixelsToTwips(extent(w, m_toolbars, Qt::RightToolBarArea)) : 0;
}

qint32 zelToolbars::BottomMargin() const
{
    QMainWindow *w = Window();
    return w ? zel::PixelsToTwips(extent(w, m_toolbars, Qt::BottomToolBarArea)) : 0;
}

QActionGroup *zelToolbars::OptionGroup(const QString &sGroup)
{
    QActionGroup *&group = m_groups[sGroup.toCaseFolded()];
    if (!group)
        group = new QActionGroup(this);
    return group;
}

void zelToolbars::ToolTriggered(const zelTool &tool)
{
    zel::Trail t(this, "ToolClicked");
    t.Run([&] {
        if (m_ignoreEvents)
            return;
        // The host may unload everything from its handler: the tool stays
        // until the click is over, and raises nothing more once let go.
        const auto keep = tool.weak_from_this().lock();
        const QPointer<zelToolbars> alive(this);
        emit ToolClicked(tool.Key());
        if (alive && tool.Owner() == this && !tool.Command().isEmpty() && !m_ignoreEvents)
            emit CommandClicked(tool.Command());
    });
}

void zelToolbars::ToolbarUserClosed(const zelToolbar &toolbar)
{
    zel::Trail t(this, "ToolbarClosed");
    t.Run([&] {
        if (!m_ignoreEvents)
            emit ToolbarClosed(toolbar.Key());
    });
}

void zelToolbars::MenuBarTaken(const zelToolbar *by)
{
    for (const auto &bar : m_toolbars)
        if (bar.get() != by && bar->MenuBar())
            bar->SetMenuBar(false);
}

void zelToolbars::HideEverywhere(const zelTool &tool)
{
    for (const auto &bar : m_toolbars)
        if (bar->Tools()->Item(tool.Key()).get() == &tool)
            bar->Tools()->Remove(tool.Key());
    for (const auto &other : *m_tools)
        if (other->Tools() && other->Tools()->Item(tool.Key()).get() == &tool)
            other->Tools()->Remove(tool.Key());
}

void zelToolbars::ReorderToolbars(const QStringList &keys)
{
    std::vector<std::shared_ptr<zelToolbar>> order;
    for (const QString &key : keys)
        if (auto bar = m_toolbars.ItemByKey(key);
            bar && std::find(order.begin(), order.end(), bar) == order.end())
            order.push_back(bar);
    for (const auto &bar : m_toolbars)
        if (std::find(order.begin(), order.end(), bar) == order.end())
            order.push_back(bar);
    m_toolbars.Clear();
    for (const auto &bar : order)
        m_toolbars.Add(bar, bar->Key());
}
