#pragma once

// The logger component "zelLog.zelHandler": appends one line per message to
// zelCtrl.log in the user's data folder (ZEL_LOG_FILE names another file).

#include "platform/zelObjectFactory.h"

#include <QObject>

class zelHandler : public QObject
{
    Q_OBJECT
public:
    explicit zelHandler(QObject *parent = nullptr) : QObject(parent) {}

    Q_INVOKABLE void ErrorMessage(const QString &sAppName, const QString &sAppVersion,
                                  const QString &sSource, qint32 lNumber, const QString &sErrSource,
                                  const QString &sDescription, const QString &sMoreInfo);
    Q_INVOKABLE void TraceMessage(const QString &sAppName, const QString &sAppVersion,
                                  const QString &sSource, const QString &sText1,
                                  const QString &sText2);

    // The file that messages go to.
    Q_INVOKABLE static QString LogFile();

private:
    static void append(const QStringList &fields);
};

class zelLogHandlerPlugin : public QObject, public zelFactoryPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID zelFactoryPlugin_iid FILE "zelLogHandler.json")
    Q_INTERFACES(zelFactoryPlugin)
public:
    QObject *Create(const QString &progId, QObject *parent) override;
};
