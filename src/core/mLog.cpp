#include "core/mLog.h"

#include "core/zelConvert.h"
#include "core/zelTrail.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QHash>

#include <memory>
#include <optional>

#ifndef ZEL_VERSION_MAJOR
#define ZEL_VERSION_MAJOR 0
#define ZEL_VERSION_MINOR 0
#define ZEL_VERSION_PATCH 0
#endif

namespace mLog {

namespace {

struct State
{
    bool initialised = false;
    qint32 conDebug = 0;
    qint32 conTrace = 0;
    qint32 conTrack = 0;
    // Both come into being at the first tracked instance.
    std::optional<QHash<QString, QString>> trackedNames;
    std::optional<QHash<QString, qint32>> instanceCounts;
};

State &state()
{
    static State s;
    return s;
}

// A stored switch as a 32-bit number; garbage in a store reads as def, so a
// hand-edited settings file cannot stop the log from working.
qint32 readSwitch(zel::SettingsScope scope, const QString &key, qint32 def)
{
    const QVariant v = zel::platform().ReadSetting(scope, key, def);
    try {
        return zel::CLng(v);
    } catch (const zelError &) {
        return def;
    }
}

void callLogger(const char *method, const QVariantList &args)
{
    std::unique_ptr<QObject> logger(CreateLogger());
    if (!logger)
        return;
    try {
        zel::CallByName(logger.get(), QString::fromLatin1(method), args);
    } catch (...) {
        // A logger that fails must not take the host down with it.
    }
}

QString caseKey(const QString &s)
{
    return s.toCaseFolded();
}

} // namespace

void InitConditional()
{
    State &s = state();
    qint32 *targets[] = {&s.conDebug, &s.conTrace, &s.conTrack};
    const char *names[] = {"ConDebug", "ConTrace", "ConTrack"};
    for (int i = 0; i < 3; ++i) {
        const QString key = QString::fromLatin1(names[i]);
        qint32 v = readSwitch(zel::SettingsScope::User, key, -99);
        if (v == -99)
            v = readSwitch(zel::SettingsScope::Machine, key, 0);
        *targets[i] = v;
    }
    s.initialised = true;
}

static void ensureInit()
{
    if (!state().initialised)
        InitConditional();
}

qint32 ConDebug()
{
    ensureInit();
    return state().conDebug;
}

qint32 ConTrace()
{
    ensureInit();
    return state().conTrace;
}

qint32 ConTrack()
{
    ensureInit();
    return state().conTrack;
}

void SetConDebug(qint32 value)
{
    ensureInit();
    state().conDebug = value;
}

void Reset()
{
    state() = State{};
}

QString VersionString()
{
    return QStringLiteral("%1.%2.%3")
        .arg(ZEL_VERSION_MAJOR)
        .arg(ZEL_VERSION_MINOR)
        .arg(ZEL_VERSION_PATCH);
}

QObject *CreateLogger()
{
    const QString progId =
        zel::platform()
            .ReadSetting(zel::SettingsScope::Machine, QStringLiteral("ErrorLogger"),
                         QStringLiteral("zelLog.zelHandler"))
            .toString();
    return zel::CreateObject(progId);
}

QString ComposeMessage(const QString &sSource, qint32 lNumber, const QString &sErrSource,
                       const QString &sDescription, const QString &sMoreInfo)
{
    const QString crlf = QStringLiteral("\r\n");
    const QString number =
        lNumber < 0 ? QString::number(quint32(lNumber), 16).toUpper() : QString::number(lNumber);
    QString text = QStringLiteral("Error:  ") + number + crlf + QStringLiteral("Source: ") +
                   sSource + QStringLiteral("::") + sErrSource + QStringLiteral(".") + crlf +
                   QStringLiteral("Description: ") + sDescription;
    if (!sMoreInfo.isEmpty()) {
        const QString more = sMoreInfo.size() > 750
                                 ? sMoreInfo.left(750) + QStringLiteral(" ...more... ")
                                 : sMoreInfo;
        text += crlf + crlf + QStringLiteral("More Info: ") + more;
    }
    return text;
}

void AddToErrorLog(const QString &sSource, qint32 lNumber, const QString &sErrSource,
                   const QString &sDescription, const QString &sMoreInfo, qint32 lMode)
{
    ensureInit();
    if (lMode < 0)
        lMode = state().conDebug;
    const QString app = zel::platform().ApplicationName();
    callLogger("ErrorMessage",
               {app, VersionString(), sSource, lNumber, sErrSource, sDescription, sMoreInfo});
    if (lMode == 0)
        return;
    zel::platform().MessageBox(
        ComposeMessage(sSource, lNumber, sErrSource, sDescription, sMoreInfo),
        QStringLiteral("Debug Mode Error Handler (") + app + QStringLiteral(")"));
}

void ErrorLog(const QString &sSource, const zelError &oErr, const QString &sMoreInfo, bool bRaise)
{
    ensureInit();
    AddToErrorLog(sSource, oErr.Number(), oErr.Source(), oErr.Description(), sMoreInfo, -1);
    if (state().conDebug == 2)
        return;
    QString trail = sSource;
    if (!oErr.Source().isEmpty())
        trail += QStringLiteral("::") + oErr.Source();
    if (!bRaise)
        return;
    if (trail.right(16) != QLatin1String(".Class_Terminate"))
        throw zelError(oErr.Number(), trail, oErr.Description());
}

void WriteLogFile(const QString &sSource, const QString &sText1, const QString &sText2)
{
    zel::Trail t(QStringLiteral("mLog.WriteLogFile"));
    t.Run([&] {
        ensureInit();
        callLogger("TraceMessage",
                   {zel::platform().ApplicationName(), VersionString(), sSource, sText1, sText2});
    });
}

void TraceLog(const QString &sSource, const QString &sText1, const QString &sText2)
{
    zel::Trail t(QStringLiteral("mLog.TraceLog"));
    t.Run([&] { WriteLogFile(sSource, sText1, sText2); });
}

void TrackerIncr(const QString &sClassName)
{
    zel::Trail t(QStringLiteral("mLog.TrackerIncr"));
    t.Run([&] {
        ensureInit();
        State &s = state();
        if (s.conTrack == 0)
            return;
        if (!s.trackedNames) {
            TraceLog(sClassName, QStringLiteral("********************"),
                     QStringLiteral("First call to tracked object"));
            s.trackedNames.emplace();
            s.instanceCounts.emplace();
        }
        const QString key = caseKey(sClassName);
        const bool seenBefore = s.trackedNames->contains(key);
        if (!seenBefore)
            s.trackedNames->insert(key, sClassName);
        if (seenBefore)
            (*s.instanceCounts)[key] = zel::CheckedAdd<qint32>(s.instanceCounts->value(key), 1);
        else
            s.instanceCounts->insert(key, 1);
    });
}

void TrackerDecr(const QString &sClassName)
{
    zel::Trail t(QStringLiteral("mLog.TrackerDecr"));
    t.Run([&] {
        ensureInit();
        State &s = state();
        if (s.conTrack == 0)
            return;
        const QString key = caseKey(sClassName);
        // Reading a count that was never stored is the collection's
        // "no such member": an error for the log, not for the host.
        if (!s.instanceCounts || !s.instanceCounts->contains(key))
            throw zelError(zelError::InvalidProcedureCall);
        (*s.instanceCounts)[key] = zel::CheckedSub<qint32>(s.instanceCounts->value(key), 1);
    });
}

qint32 TrackedCount(const QString &sClassName)
{
    const State &s = state();
    return s.instanceCounts ? s.instanceCounts->value(caseKey(sClassName)) : 0;
}

} // namespace mLog
