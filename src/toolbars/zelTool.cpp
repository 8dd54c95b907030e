#include "toolbars/zelTool.h"

#include "core/zelTrail.h"
#include "lists/zelImageList.h"
#include "toolbars/zelToolbars.h"
#include "toolbars/zelTools.h"

#include <QAction>
#include <QActionGroup>
#include <QIcon>
#include <QImage>
#include <QKeySequence>
#include <QMenu>
#include <QPixmap>

zelTool::zelTool(const QString &sKey, ZEL_Toolbar_ToolTypes eType, zelToolbars *owner)
    : m_key(sKey), m_type(eType), m_owner(owner), m_action(std::make_unique<QAction>())
{
    m_action->setObjectName(sKey);
    switch (m_type) {
    case ZEL_Toolbar_ToolCheck:
    case ZEL_Toolbar_ToolOption:
        m_action->setCheckable(true);
        break;
    case ZEL_Toolbar_ToolMenu:
        m_menu = std::make_unique<QMenu>();
        m_menu->setObjectName(sKey);
        m_action->setMenu(m_menu.get());
        m_tools = std::make_shared<zelTools>(owner, false, m_menu.get());
        m_tools->SetMenuTool(this);
        break;
    case ZEL_Toolbar_ToolSeparator:
        m_action->setSeparator(true);
        break;
    default:
        break;
    }
    if (m_type == ZEL_Toolbar_ToolOption)
        joinGroup();
    // A label only shows its text, and a menu opens on a click.
    if (m_type != ZEL_Toolbar_ToolLabel && m_type != ZEL_Toolbar_ToolMenu &&
        m_type != ZEL_Toolbar_ToolSeparator)
        connect(m_action.get(), &QAction::triggered, this, [this] {
            if (m_owner)
                m_owner->ToolTriggered(*this);
        });
}

zelTool::~zelTool()
{
    // The menu goes first: it must not outlive the action that points at it,
    // nor keep the child tools' actions.
    if (m_tools)
        m_tools->SetContainer(nullptr);
    m_action.reset();
    m_menu.reset();
}

void zelTool::Release()
{
    m_owner = nullptr;
    if (m_tools) {
        m_tools->Detach();
        m_tools->Clear();
    }
    if (auto *group = m_action->actionGroup())
        group->removeAction(m_action.get());
}

void zelTool::SetCaption(const QString &v)
{
    m_caption = v;
    m_action->setText(v);
    m_action->setIconText(v);
    if (m_menu)
        m_menu->setTitle(v);
}

void zelTool::SetToolTip(const QString &v)
{
    m_toolTip = v;
    m_action->setToolTip(v.isEmpty() ? m_caption : v);
}

bool zelTool::Enabled() const
{
    return m_action->isEnabled();
}

void zelTool::SetEnabled(bool v)
{
    m_action->setEnabled(v);
}

bool zelTool::Visible() const
{
    return m_action->isVisible();
}

void zelTool::SetVisible(bool v)
{
    m_action->setVisible(v);
}

bool zelTool::Checked() const
{
    return m_action->isChecked();
}

void zelTool::SetChecked(bool v)
{
    // An exclusive group keeps one option pressed; releasing it by code is
    // the host's right all the same.
    QActionGroup *group = m_action->actionGroup();
    if (!v && group && m_action->isChecked()) {
        group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
        m_action->setChecked(false);
        group->setExclusionPolicy(QActionGroup::ExclusionPolicy::Exclusive);
        return;
    }
    m_action->setChecked(v);
}

void zelTool::SetPicture(const QVariant &v)
{
    zel::Trail t(this, "Picture Let");
    t.Run([&] {
        QIcon icon;
        switch (v.metaType().id()) {
        case QMetaType::UnknownType:
            break;
        case QMetaType::QIcon:
            icon = v.value<QIcon>();
            break;
        case QMetaType::QPixmap:
            icon = QIcon(v.value<QPixmap>());
            break;
        case QMetaType::QImage:
            icon = QIcon(QPixmap::fromImage(v.value<QImage>()));
            break;
        default: {
            const qint32 index = m_owner ? m_owner->Images().ImageIndex(v) : 0;
            if (index == 0)
                throw zelError(zel::zelImageList::InvalidPicture, t.Name(),
                               QStringLiteral("No picture is known by that key"));
            icon = m_owner->Images().Icon(index);
        }
        }
        if (v.isValid() && icon.isNull())
            throw zelError(zel::zelImageList::InvalidPicture, t.Name(),
                           QStringLiteral("The picture is empty"));
        m_picture = v;
        m_action->setIcon(icon);
    });
}

QString zelTool::Shortcut() const
{
    return m_action->shortcut().toString(QKeySequence::PortableText);
}

void zelTool::SetShortcut(const QString &v)
{
    zel::Trail t(this, "Shortcut Let");
    t.Run([&] {
        const QKeySequence seq = QKeySequence::fromString(v, QKeySequence::PortableText);
        if (!v.trimmed().isEmpty() && seq.isEmpty())
            throw zelError(zelError::InvalidPropertyValue, t.Name(),
                           QStringLiteral("\"%1\" names no key sequence").arg(v.left(80)));
        m_action->setShortcut(seq);
    });
}

void zelTool::SetCommand(const QString &v)
{
    m_command = v;
}

void zelTool::SetGroup(const QString &v)
{
    if (m_group == v)
        return;
    m_group = v;
    if (m_type == ZEL_Toolbar_ToolOption)
        joinGroup();
}

void zelTool::joinGroup()
{
    if (auto *old = m_action->actionGroup())
        old->removeAction(m_action.get());
    if (m_owner)
        m_owner->OptionGroup(m_group)->addAction(m_action.get());
}
