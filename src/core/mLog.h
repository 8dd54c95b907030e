#pragma once

// The diagnostic log: every failing procedure of the library hands its
// failure here, with its trail name ("zelInputBox.MaxLength Let"). The log
// sends it to the logger component (created by its program identifier for
// each message and released at once), shows it to a developer when ConDebug
// asks for it, and then swallows it or raises it again to the caller.
//
// The switches ConDebug, ConTrace and ConTrack are read once per process:
// first from the per-user store (a missing value reads as -99), then, for a
// value missing there, from the machine-wide store (missing reads as 0).

#include "core/zelError.h"
#include "zelCtrlExport.h"

#include <QObject>
#include <QString>

namespace mLog {

ZELCTRL_EXPORT void ErrorLog(const QString &sSource, const zelError &oErr, const QString &sMoreInfo,
                             bool bRaise);
ZELCTRL_EXPORT void AddToErrorLog(const QString &sSource, qint32 lNumber, const QString &sErrSource,
                                  const QString &sDescription, const QString &sMoreInfo,
                                  qint32 lMode);
ZELCTRL_EXPORT void TraceLog(const QString &sSource, const QString &sText1, const QString &sText2);
ZELCTRL_EXPORT void WriteLogFile(const QString &sSource, const QString &sText1,
                                 const QString &sText2);
ZELCTRL_EXPORT void InitConditional();
// A new logger for one message, or nullptr; the caller deletes it.
ZELCTRL_EXPORT QObject *CreateLogger();
ZELCTRL_EXPORT QString VersionString();
ZELCTRL_EXPORT void TrackerIncr(const QString &sClassName);
ZELCTRL_EXPORT void TrackerDecr(const QString &sClassName);

// The message text that AddToErrorLog shows (lines joined with CR LF).
ZELCTRL_EXPORT QString ComposeMessage(const QString &sSource, qint32 lNumber,
                                      const QString &sErrSource, const QString &sDescription,
                                      const QString &sMoreInfo);

// The switches as read (reading them first if need be).
ZELCTRL_EXPORT qint32 ConDebug();
ZELCTRL_EXPORT qint32 ConTrace();
ZELCTRL_EXPORT qint32 ConTrack();
// The live-instance count that TrackerIncr/TrackerDecr keep for a class;
// 0 for a class never seen.
ZELCTRL_EXPORT qint32 TrackedCount(const QString &sClassName);

// For tools such as the gallery's switch: ConDebug from now on.
ZELCTRL_EXPORT void SetConDebug(qint32 value);
// Forgets the switches and the tracking, so that the next call reads the
// stores again. For tests, which need a fresh process state per case.
ZELCTRL_EXPORT void Reset();

} // namespace mLog
