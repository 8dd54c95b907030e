#include "zelLogHandler.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

QString zelHandler::LogFile()
{
    const QString over = qEnvironmentVariable("ZEL_LOG_FILE");
    if (!over.isEmpty())
        return over;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Quorvane/zelCtrl.log");
}

void zelHandler::append(const QStringList &fields)
{
    const QString file = LogFile();
    QDir().mkpath(QFileInfo(file).absolutePath());
    QFile f(file);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return; // an unwritable log is no reason to fail the host
    QStringList clean;
    for (QString s : fields)
        clean << s.replace(QLatin1Char('\t'), QLatin1Char(' '))
                     .replace(QLatin1String("\r\n"), QLatin1String(" | "))
                     .replace(QLatin1Char('\n'), QLatin1String(" | "));
    f.write(clean.join(QLatin1Char('\t')).toUtf8() + '\n');
}

void zelHandler::ErrorMessage(const QString &sAppName, const QString &sAppVersion,
                              const QString &sSource, qint32 lNumber, const QString &sErrSource,
                              const QString &sDescription, const QString &sMoreInfo)
{
    append({QDateTime::currentDateTime().toString(Qt::ISODateWithMs), sAppName, sAppVersion,
            sErrSource.isEmpty() ? sSource : sSource + QStringLiteral("::") + sErrSource,
            QString::number(lNumber), sDescription, sMoreInfo});
}

void zelHandler::TraceMessage(const QString &sAppName, const QString &sAppVersion,
                              const QString &sSource, const QString &sText1, const QString &sText2)
{
    append({QDateTime::currentDateTime().toString(Qt::ISODateWithMs), sAppName, sAppVersion,
            sSource, QStringLiteral("trace"), sText1, sText2});
}

QObject *zelLogHandlerPlugin::Create(const QString &progId, QObject *parent)
{
    if (progId.compare(QLatin1String("zelLog.zelHandler"), Qt::CaseInsensitive) != 0)
        return nullptr;
    return new zelHandler(parent);
}
