#pragma once

// One tool of an application: a button, a check button, an option button of
// a group, a menu with child tools, a separator or a label. A tool is one
// object wherever it appears: the toolbars and menus that show it share its
// QAction, so its caption, state and picture change everywhere at once.
// Tools are made by zelTools::Create and belong to their zelToolbars; the
// key is fixed when the tool is made.

#include "core/zelShared.h"
#include "toolbars/zelToolbarEnums.h"

#include <QPointer>
#include <QString>
#include <QVariant>

#include <memory>

class QAction;
class QMenu;
class zelTools;
class zelToolbars;

class ZELCTRL_EXPORT zelTool : public zel::SharedObject<zelTool>
{
    Q_OBJECT
    Q_PROPERTY(QString Key READ Key)
    Q_PROPERTY(ZEL_Toolbar_ToolTypes Type READ Type)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(QString ToolTip READ ToolTip WRITE SetToolTip)
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(bool Visible READ Visible WRITE SetVisible)
    Q_PROPERTY(bool Checked READ Checked WRITE SetChecked)
    Q_PROPERTY(QVariant Picture READ Picture WRITE SetPicture)
    Q_PROPERTY(QString Shortcut READ Shortcut WRITE SetShortcut)
    Q_PROPERTY(QString Command READ Command WRITE SetCommand)
    Q_PROPERTY(QString Group READ Group WRITE SetGroup)
    Q_PROPERTY(std::shared_ptr<zelTools> Tools READ Tools)

public:
    zelTool(const QString &sKey, ZEL_Toolbar_ToolTypes eType, zelToolbars *owner);
    ~zelTool() override;

    QString Key() const { return m_key; }
    ZEL_Toolbar_ToolTypes Type() const { return m_type; }
    QString Caption() const { return m_caption; }
    void SetCaption(const QString &v);
    QString ToolTip() const { return m_toolTip; }
    void SetToolTip(const QString &v);
    // True by default.
    bool Enabled() const;
    void SetEnabled(bool v);
    // True by default.
    bool Visible() const;
    void SetVisible(bool v);
    // Only check and option buttons hold a check; false for the others.
    bool Checked() const;
    void SetChecked(bool v);
    // An image key of the toolbars' image list, a QIcon, QPixmap or QImage;
    // nothing by default. A picture that cannot be shown is logged and the
    // tool keeps the one it had.
    QVariant Picture() const { return m_picture; }
    void SetPicture(const QVariant &v);
    // A key sequence in its portable text form ("Ctrl+S"); "" by default.
    // Text that names no key sequence is logged and refused.
    QString Shortcut() const;
    void SetShortcut(const QString &v);
    // Raised with CommandClicked on every click; "" (no CommandClicked) by default.
    QString Command() const { return m_command; }
    void SetCommand(const QString &v);
    // The option group of an option button ("" by default: the tools of no
    // group form one group of their own).
    QString Group() const { return m_group; }
    void SetGroup(const QString &v);
    // The child tools of a menu; nothing for the other types.
    std::shared_ptr<zelTools> Tools() const { return m_tools; }

    // For the object model: the action that toolbars and menus show.
    QAction *Action() const { return m_action.get(); }
    // The toolbars the tool was made for; nothing once they let it go
    // (Release: their Unload, Clear, or the tool's Remove).
    zelToolbars *Owner() const { return m_owner; }
    void Release();

private:
    void joinGroup();

    QString m_key;
    ZEL_Toolbar_ToolTypes m_type;
    QPointer<zelToolbars> m_owner;
    QString m_caption, m_toolTip, m_command, m_group;
    QVariant m_picture;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QAction> m_action;
    std::shared_ptr<zelTools> m_tools;
};
