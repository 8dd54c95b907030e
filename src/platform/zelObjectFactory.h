#pragma once

// The object factory: every public class is created by its program
// identifier ("zelCtrl.zelInputBox"), the way a form designer, a script
// engine or another language binding reaches it. Classes of the library
// register themselves; other components (the logger "zelLog.zelHandler")
// come from plugins found on the plugin path.

#include "zelCtrlExport.h"
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <QtPlugin>

#include <functional>

namespace zel {

using Creator = std::function<QObject *(QObject *parent)>;

// Creates an object by program identifier (letter case ignored); nullptr
// when no registered class or plugin answers to it. Never throws.
ZELCTRL_EXPORT QObject *CreateObject(const QString &progId, QObject *parent = nullptr);

// Adds a class to the built-in registry; a later registration of the same
// identifier replaces the earlier one (tests put fakes in this way).
ZELCTRL_EXPORT void RegisterProgId(const QString &progId, Creator creator);
// Takes a class out of the registry again.
ZELCTRL_EXPORT void UnregisterProgId(const QString &progId);
// The identifiers of the built-in registry, in alphabetical order.
ZELCTRL_EXPORT QStringList RegisteredProgIds();

// Folders searched for plugins: ZEL_PLUGIN_PATH (a list with the system's
// path separator), then the build tree's and the installed plugin folders.
ZELCTRL_EXPORT QStringList PluginSearchPath();

// Registers a class at load time of the library:
//   ZEL_REGISTER_PROGID(zelInputBox)  ->  "zelCtrl.zelInputBox"
template <typename T> struct ProgIdRegistrar
{
    explicit ProgIdRegistrar(const QString &progId)
    {
        RegisterProgId(progId, [](QObject *parent) -> QObject * {
            if constexpr (std::is_base_of_v<QWidget, T>)
                return new T(qobject_cast<QWidget *>(parent));
            else
                return new T(parent);
        });
    }
};

} // namespace zel

#define ZEL_REGISTER_PROGID(Class)                                                                 \
    static const ::zel::ProgIdRegistrar<Class> zelProgIdRegistrar_##Class(                         \
        QStringLiteral("zelCtrl." #Class))

// The interface that a factory plugin implements. Its metadata JSON lists the
// identifiers it serves: { "ProgIds": ["zelLog.zelHandler"] }.
class ZELCTRL_EXPORT zelFactoryPlugin
{
public:
    virtual ~zelFactoryPlugin() = default;
    virtual QObject *Create(const QString &progId, QObject *parent) = 0;
};

#define zelFactoryPlugin_iid "com.quorvane.zelCtrl.FactoryPlugin/1.0"
Q_DECLARE_INTERFACE(zelFactoryPlugin, zelFactoryPlugin_iid)
