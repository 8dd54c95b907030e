#pragma once

// Bringing one synchronised folder into step. Plan() looks at both folders
// and at what was known at the last run and answers what a run would do,
// touching no file; Run() carries a plan out. Rules:
// - new and newer files are copied in the folder's direction; nothing is
//   ever deleted;
// - a file changed on both sides since the last run is never overwritten:
//   the other version is kept beside it under a "(conflict <date>)" name;
// - every copy goes to a temporary file first and is renamed into place, so
//   an interrupted run leaves no half-written file;
// - a run can stop between files; what it knew of each file it handled is
//   kept per folder in the application's data location.

#include "syncfolders/zelSyncFolder.h"
#include "zelCtrlExport.h"

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

struct ZELCTRL_EXPORT zelSyncAction
{
    enum Kind
    {
        Copy,     // path copied to the other side (new there, or newer here)
        Conflict, // changed on both sides: the other version kept as target
        Skip,     // nothing to do (reason says why)
        Error,    // cannot be handled (reason says why)
    };
    Kind kind = Skip;
    QString path;         // relative path of the file on the side it comes from
    bool toSecond = true; // the direction of a copy or conflict
    QString target;       // relative path written on the other side
    QString reason;
    // What stood at target when the plan was made (size -1: nothing); a copy
    // finds it unchanged or leaves it alone.
    qint64 targetSize = -1;
    qint64 targetMsecs = 0;

    // One line for a person: "Copy to second folder: a/b.txt".
    QString Text() const;
};

struct ZELCTRL_EXPORT zelSyncSummary
{
    qint32 copied = 0;
    qint32 conflicts = 0;
    qint32 skipped = 0;
    qint32 errors = 0;
    bool cancelled = false;
    QStringList problems; // each error, for the log and a person

    QString Text(const QString &folderName) const;
};

class ZELCTRL_EXPORT zelSyncEngine
{
public:
    // stateFile: where what was known at the last run lies.
    zelSyncEngine(const zelSyncFolder &folder, const QString &stateFile);

    // What a run would do now; an empty plan with refusal set when the
    // folder cannot be run at all (see zelSyncFolder::Check).
    QList<zelSyncAction> Plan();
    QString Refusal() const { return m_refusal; }

    // Carries plan out. progress(done, total, path) is asked before each
    // copy; answering false stops the run there.
    zelSyncSummary Run(const QList<zelSyncAction> &plan,
                       const std::function<bool(qint32, qint32, const QString &)> &progress);

    // The state file of a folder of an application.
    static QString StateFile(const QString &application, const QString &folderName);
    // The name under which the other version of path is kept ("a (conflict
    // 2026-11-23 153000).txt"); n > 1 numbers a second one of the same time.
    static QString ConflictName(const QString &path, const QDateTime &when, int n = 1);

private:
    struct Seen
    {
        qint64 size = -1;
        qint64 msecs = 0;
        bool operator==(const Seen &o) const { return size == o.size && msecs == o.msecs; }
    };
    struct Known
    {
        Seen local, second;
    };
    void LoadState();
    void SaveState(zelSyncSummary &summary);
    bool Allowed(bool toSecond) const;
    QString Root(bool second) const { return second ? m_second : m_local; }

    const zelSyncFolder &m_folder;
    QString m_stateFile;
    QString m_local, m_second; // canonical roots
    QString m_refusal;
    QHash<QString, Known> m_state; // by path in lower case
};
