#include "platform/zelObjectFactory.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QMap>
#include <QPluginLoader>

#include <exception>

#ifndef ZEL_PLUGIN_INSTALL_DIR
#define ZEL_PLUGIN_INSTALL_DIR ""
#endif
#ifndef ZEL_PLUGIN_BUILD_DIR
#define ZEL_PLUGIN_BUILD_DIR ""
#endif

namespace zel {

namespace {

// Keyed by the folded identifier; the value keeps the spelling it came with.
struct Entry
{
    QString progId;
    Creator creator;
};

QHash<QString, Entry> &registry()
{
    static QHash<QString, Entry> r;
    return r;
}

// Plugins are looked for once per identifier and folder set; a loader that
// failed is not tried again within the process.
QHash<QString, QString> &pluginIndex()
{
    static QHash<QString, QString> index; // folded prog id -> plugin file
    return index;
}

QString scannedPath;

void scanPlugins()
{
    const QString path = PluginSearchPath().join(QLatin1Char('\n'));
    if (path == scannedPath)
        return;
    scannedPath = path;
    pluginIndex().clear();
    for (const QString &dir : PluginSearchPath()) {
        const QDir d(dir);
        for (const QString &name : d.entryList(QDir::Files)) {
            const QString file = d.absoluteFilePath(name);
            if (!QLibrary::isLibrary(file))
                continue;
            // Metadata is read without loading the library.
            QPluginLoader loader(file);
            const QJsonObject meta = loader.metaData();
            if (meta.value(QStringLiteral("IID")).toString() != QLatin1String(zelFactoryPlugin_iid))
                continue;
            const QJsonArray ids = meta.value(QStringLiteral("MetaData"))
                                       .toObject()
                                       .value(QStringLiteral("ProgIds"))
                                       .toArray();
            for (const auto &id : ids) {
                const QString key = id.toString().toCaseFolded();
                if (!pluginIndex().contains(key))
                    pluginIndex().insert(key, file);
            }
        }
    }
}

QObject *createFromPlugin(const QString &progId, QObject *parent)
{
    scanPlugins();
    const QString file = pluginIndex().value(progId.toCaseFolded());
    if (file.isEmpty())
        return nullptr;
    QPluginLoader loader(file);
    auto *factory = qobject_cast<zelFactoryPlugin *>(loader.instance());
    if (!factory)
        return nullptr;
    return factory->Create(progId, parent);
}

} // namespace

QObject *CreateObject(const QString &progId, QObject *parent)
{
    try {
        const auto it = registry().constFind(progId.toCaseFolded());
        if (it != registry().constEnd())
            return it->creator(parent);
        return createFromPlugin(progId, parent);
    } catch (...) {
        // A failing constructor or plugin is "could not create", nothing more.
        return nullptr;
    }
}

void RegisterProgId(const QString &progId, Creator creator)
{
    registry().insert(progId.toCaseFolded(), Entry{progId, std::move(creator)});
}

void UnregisterProgId(const QString &progId)
{
    registry().remove(progId.toCaseFolded());
}

QStringList RegisteredProgIds()
{
    QStringList ids;
    for (const Entry &e : std::as_const(registry()))
        ids << e.progId;
    ids.sort(Qt::CaseInsensitive);
    return ids;
}

QStringList PluginSearchPath()
{
    QStringList dirs;
    const QString env = qEnvironmentVariable("ZEL_PLUGIN_PATH");
    if (!env.isEmpty())
        dirs << env.split(QDir::listSeparator(), Qt::SkipEmptyParts);
    for (const char *d : {ZEL_PLUGIN_BUILD_DIR, ZEL_PLUGIN_INSTALL_DIR}) {
        const QString dir = QString::fromUtf8(d);
        if (!dir.isEmpty() && QDir(dir).exists() && !dirs.contains(dir))
            dirs << dir;
    }
    return dirs;
}

} // namespace zel
