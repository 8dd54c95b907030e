#pragma once

// The toolbar layout a user leaves (which toolbars show, where they dock,
// their order, the order of their tools), kept per user and per application
// in the per-user settings store, and restored on the next start. The saved
// state carries a version and is merged with what the application builds:
// a toolbar or tool that a newer version adds appears where the application
// puts it, one it no longer has drops out. A saved state that is corrupt or
// no layout of this library is logged, and the application's own layout
// stays.
//
//     zelToolbarLayout layout(ctl->Toolbars(), "MyApp");
//     layout.Restore();            // after building the toolbars
//     ...
//     layout.Save();               // before the window goes

#include "toolbars/zelToolbars.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <memory>

class QDialog;
class QWidget;

namespace zel {

struct ToolbarState
{
    QString Key;
    bool Visible = true;
    qint32 Dock = ZEL_Toolbar_DockedTop;
    bool LineBreak = false; // a new line of toolbars starts here
    QStringList Tools;      // tool keys in order
    bool operator==(const ToolbarState &) const = default;
};

// The toolbars in the order they are docked.
struct ToolbarLayoutState
{
    QList<ToolbarState> Toolbars;
    bool operator==(const ToolbarLayoutState &) const = default;
};

// The version of the saved form that this library writes.
inline constexpr int ToolbarLayoutVersion = 1;

ZELCTRL_EXPORT QByteArray ToolbarLayoutToJson(const ToolbarLayoutState &state);
// Throws zelError for text that is no saved layout of this library (not
// JSON, another shape, a newer version).
ZELCTRL_EXPORT ToolbarLayoutState ToolbarLayoutFromJson(const QByteArray &json);
// What the user left, on what the application builds now: the saved order
// and state of everything still there, the application's own for the rest,
// each new toolbar or tool after the one it follows in the application's
// order.
ZELCTRL_EXPORT ToolbarLayoutState MergeToolbarLayout(const ToolbarLayoutState &defaults,
                                                     const ToolbarLayoutState &saved);
// The layout of toolbars now, and the same put back.
ZELCTRL_EXPORT ToolbarLayoutState CaptureToolbarLayout(const zelToolbars &toolbars);
ZELCTRL_EXPORT void ApplyToolbarLayout(zelToolbars &toolbars, const ToolbarLayoutState &state);

} // namespace zel

class ZELCTRL_EXPORT zelToolbarLayout : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Application READ Application)

public:
    zelToolbarLayout(std::shared_ptr<zelToolbars> toolbars, const QString &sApplication,
                     QObject *parent = nullptr);
    ~zelToolbarLayout() override;

    QString Application() const { return m_application; }
    // Takes the layout the toolbars have now as the application's own, then
    // puts back what the user left. False (and logged) when the saved layout
    // could not be used: the toolbars then keep the application's layout.
    Q_INVOKABLE bool Restore();
    // Writes the layout the toolbars have now. False (and logged) when the
    // store cannot be written or there is no application name.
    Q_INVOKABLE bool Save();
    // Puts back the application's own layout.
    Q_INVOKABLE void Reset();
    // Opens the "Customise" dialog on parent (not modal: the caller goes on);
    // OK applies what the user chose, Cancel changes nothing.
    Q_INVOKABLE QDialog *Customise(QWidget *parent = nullptr);

    // The application's own layout (as the toolbars had it at the first
    // Restore, or now when nothing was restored).
    zel::ToolbarLayoutState Defaults() const;
    const std::shared_ptr<zelToolbars> &Toolbars() const { return m_toolbars; }

private:
    std::shared_ptr<zelToolbars> m_toolbars;
    QString m_application;
    std::unique_ptr<zel::ToolbarLayoutState> m_defaults;
};
