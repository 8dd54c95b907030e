#include "syncfolders/zelSyncEngine.h"

#include "core/mLog.h"
#include "core/zelTrail.h"
#include "platform/zelFileSystem.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRandomGenerator>

#include <cstdlib>

namespace {

const QString TempPrefix = QStringLiteral(".zelsync-");
// File systems that keep times to two seconds (FAT) still compare equal.
constexpr qint64 TimeSlack = 2000;

qint64 msecsOf(const zel::FileEntry &e)
{
    return e.modified.toMSecsSinceEpoch();
}

bool sameFile(const zel::FileEntry &a, const zel::FileEntry &b)
{
    return a.size == b.size && std::llabs(msecsOf(a) - msecsOf(b)) <= TimeSlack;
}

QString fileNameOf(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

void logProblem(const char *procedure, const QString &what)
{
    mLog::AddToErrorLog(QStringLiteral("zelSyncEngine.") + QLatin1String(procedure),
                        zelError::InvalidProcedureCall, QString(), what, QString(), -1);
}

// Each side's files by path in lower case; names that differ only in letter
// case on one side are set apart, since a folder that ignores case could
// not hold both.
struct Listing
{
    QHash<QString, zel::FileEntry> files;
    QMap<QString, QStringList> clashes;

    void Fill(const QList<zel::FileEntry> &list)
    {
        for (const zel::FileEntry &e : list) {
            if (fileNameOf(e.path).startsWith(TempPrefix))
                continue; // a copy under way, or left by a run that died
            const QString key = e.path.toLower();
            if (clashes.contains(key)) {
                clashes[key] << e.path;
            } else if (files.contains(key)) {
                clashes[key] << files.take(key).path << e.path;
            } else {
                files.insert(key, e);
            }
        }
    }
};

} // namespace

QString zelSyncAction::Text() const
{
    switch (kind) {
    case Copy:
        return (toSecond ? QStringLiteral("Copy to second folder: ")
                         : QStringLiteral("Copy from second folder: ")) +
               path;
    case Conflict:
        return QStringLiteral("Conflict: %1 changed on both sides; the other version is kept as %2")
            .arg(path, target);
    case Skip:
        return QStringLiteral("Skip: %1 (%2)").arg(path, reason);
    case Error:
        break;
    }
    return path.isEmpty() ? QStringLiteral("Error: ") + reason
                          : QStringLiteral("Error: %1 (%2)").arg(path, reason);
}

QString zelSyncSummary::Text(const QString &folderName) const
{
    QString text = QStringLiteral("%1: %2 copied, %3 conflicts kept, %4 skipped, %5 errors")
                       .arg(folderName)
                       .arg(copied)
                       .arg(conflicts)
                       .arg(skipped)
                       .arg(errors);
    return cancelled ? text + QStringLiteral(", cancelled") : text;
}

zelSyncEngine::zelSyncEngine(const zelSyncFolder &folder, const QString &stateFile)
    : m_folder(folder), m_stateFile(stateFile)
{}

QString zelSyncEngine::StateFile(const QString &application, const QString &folderName)
{
    auto safe = [](QString s) {
        for (QChar &c : s)
            if (!c.isLetterOrNumber() && c != QLatin1Char('-') && c != QLatin1Char('_'))
                c = QLatin1Char('_');
        return s.left(60);
    };
    // The hash keeps apart names that the safe form would make equal.
    const QByteArray hash =
        QCryptographicHash::hash(folderName.toLower().toUtf8(), QCryptographicHash::Sha1)
            .toHex()
            .left(10);
    return zel::fileSystem().DataLocation() + QStringLiteral("/SyncFolders/") + safe(application) +
           QLatin1Char('/') + safe(folderName) + QLatin1Char('-') + QString::fromLatin1(hash) +
           QStringLiteral(".json");
}

QString zelSyncEngine::ConflictName(const QString &path, const QDateTime &when, int n)
{
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot <= slash + 1)
        dot = path.size(); // no extension, or a name such as ".profile"
    return path.left(dot) + QStringLiteral(" (conflict ") +
           when.toString(QStringLiteral("yyyy-MM-dd HHmmss")) +
           (n > 1 ? QStringLiteral(" %1").arg(n) : QString()) + QLatin1Char(')') + path.mid(dot);
}

bool zelSyncEngine::Allowed(bool toSecond) const
{
    const ZEL_SyncDirections d = m_folder.Direction();
    return d == ZEL_SyncBothWays || (toSecond ? d == ZEL_SyncToSecond : d == ZEL_SyncFromSecond);
}

void zelSyncEngine::LoadState()
{
    m_state.clear();
    QString error;
    const QByteArray data = zel::fileSystem().ReadFile(m_stateFile, error);
    if (data.isEmpty())
        return; // never run
    const QJsonObject root = QJsonDocument::fromJson(data).object();
    // What was known of other folders (the folder's paths were changed since)
    // says nothing about these.
    if (root.value("Local").toString() != m_local || root.value("Second").toString() != m_second)
        return;
    const QJsonObject files = root.value("Files").toObject();
    for (auto it = files.begin(); it != files.end(); ++it) {
        const QJsonArray a = it.value().toArray();
        if (a.size() != 4) {
            logProblem("LoadState",
                       QStringLiteral("unreadable state, taken as never run: ") + m_stateFile);
            m_state.clear();
            return;
        }
        m_state.insert(it.key(), {{qint64(a[0].toDouble()), qint64(a[1].toDouble())},
                                  {qint64(a[2].toDouble()), qint64(a[3].toDouble())}});
    }
}

QList<zelSyncAction> zelSyncEngine::Plan()
{
    QList<zelSyncAction> plan;
    m_refusal = m_folder.Check();
    if (!m_refusal.isEmpty())
        return plan;
    zel::FileSystem &fs = zel::fileSystem();
    m_local = fs.CanonicalFolder(m_folder.LocalFolder());
    m_second = fs.CanonicalFolder(m_folder.SecondFolder());
    LoadState();

    QStringList problems;
    Listing local, second;
    local.Fill(fs.ListFiles(m_local, m_folder.Patterns(), problems));
    second.Fill(fs.ListFiles(m_second, m_folder.Patterns(), problems));
    for (const QString &p : std::as_const(problems))
        plan.append({zelSyncAction::Error, QString(), true, QString(), p});
    for (const Listing *side : {&local, &second})
        for (auto it = side->clashes.begin(); it != side->clashes.end(); ++it)
            plan.append({zelSyncAction::Error,
                         it.value().join(QStringLiteral(", ")),
                         true,
                         {},
                         QStringLiteral("names that differ only in letter case")});

    QStringList keys = local.files.keys() + second.files.keys();
    keys.sort();
    keys.removeDuplicates();
    const QDateTime now = QDateTime::currentDateTime();
    for (const QString &key : std::as_const(keys)) {
        if (local.clashes.contains(key) || second.clashes.contains(key))
            continue;
        const bool inL = local.files.contains(key), inS = second.files.contains(key);
        const zel::FileEntry l = local.files.value(key), s = second.files.value(key);
        auto action = [&](zelSyncAction::Kind kind, bool toSecond, const QString &reason = {}) {
            const zel::FileEntry &from = toSecond ? l : s, &to = toSecond ? s : l;
            const bool there = toSecond ? inS : inL;
            zelSyncAction a{kind, from.path, toSecond, from.path, reason};
            if (kind == zelSyncAction::Skip)
                a.path = a.target = inL ? l.path : s.path;
            if (kind == zelSyncAction::Conflict)
                a.target = ConflictName(from.path, now);
            if (there && kind == zelSyncAction::Copy) {
                a.targetSize = to.size;
                a.targetMsecs = msecsOf(to);
            }
            plan.append(a);
        };
        auto copyOrSkip = [&](bool toSecond, const char *why) {
            if (Allowed(toSecond))
                action(zelSyncAction::Copy, toSecond);
            else
                action(zelSyncAction::Skip, !toSecond, QString::fromLatin1(why));
        };
        if (!inL || !inS) {
            copyOrSkip(inL, "not copied in this direction");
            continue;
        }
        if (l.path != s.path) {
            plan.append({zelSyncAction::Error,
                         l.path + QStringLiteral(", ") + s.path,
                         true,
                         {},
                         QStringLiteral("names that differ only in letter case")});
            continue;
        }
        if (sameFile(l, s)) {
            action(zelSyncAction::Skip, true, QStringLiteral("the same on both sides"));
            continue;
        }
        const bool newerHere = msecsOf(l) > msecsOf(s);
        // Each version goes beside the other wherever the direction allows,
        // under the same name on both sides.
        auto conflict = [&] {
            for (bool toSecond : {true, false})
                if (Allowed(toSecond))
                    action(zelSyncAction::Conflict, toSecond);
        };
        const auto known = m_state.constFind(key);
        if (known == m_state.constEnd()) {
            // Never seen together: the newer one is the new version.
            if (std::llabs(msecsOf(l) - msecsOf(s)) <= TimeSlack)
                conflict();
            else
                copyOrSkip(newerHere, "the other side is newer");
            continue;
        }
        const bool changedL = !(known->local == Seen{l.size, msecsOf(l)});
        const bool changedS = !(known->second == Seen{s.size, msecsOf(s)});
        if (changedL && changedS) {
            conflict();
        } else if (changedL || changedS) {
            copyOrSkip(changedL, "changed only on the side not copied from");
        } else {
            action(zelSyncAction::Skip, true,
                   QStringLiteral("both versions were kept at an earlier conflict"));
        }
    }
    return plan;
}

zelSyncSummary
zelSyncEngine::Run(const QList<zelSyncAction> &plan,
                   const std::function<bool(qint32, qint32, const QString &)> &progress)
{
    zelSyncSummary summary;
    zel::FileSystem &fs = zel::fileSystem();
    qint32 total = 0, done = 0;
    for (const zelSyncAction &a : plan)
        total += a.kind == zelSyncAction::Copy || a.kind == zelSyncAction::Conflict;
    // Temporary files of a run that died: nothing will finish them. One
    // younger than an hour may belong to a run still going elsewhere.
    const QDateTime stale = QDateTime::currentDateTimeUtc().addSecs(-3600);
    for (const QString &root : {m_local, m_second}) {
        QStringList ignored;
        for (const zel::FileEntry &e : fs.ListFiles(root, {TempPrefix + '*'}, ignored))
            if (e.modified < stale)
                fs.Remove(root + QLatin1Char('/') + e.path);
    }
    QStringList handled;
    auto fail = [&](const QString &why) {
        ++summary.errors;
        summary.problems << why;
    };
    for (const zelSyncAction &a : plan) {
        if (a.kind == zelSyncAction::Error) {
            fail(a.Text());
            continue;
        }
        if (a.kind == zelSyncAction::Skip) {
            ++summary.skipped;
            if (a.reason == QLatin1String("the same on both sides"))
                handled << a.path;
            continue;
        }
        if (progress && !progress(done, total, a.path)) {
            summary.cancelled = true;
            break;
        }
        ++done;
        const QString from = Root(!a.toSecond) + QLatin1Char('/') + a.path;
        QString to = Root(a.toSecond) + QLatin1Char('/') + a.target;
        zel::FileEntry now;
        const bool there = fs.Stat(to, now);
        if (a.kind == zelSyncAction::Copy &&
            (there ? now.size != a.targetSize || msecsOf(now) != a.targetMsecs
                   : a.targetSize >= 0)) {
            fail(a.path +
                 QStringLiteral(": changed in the other folder during the run, left alone"));
            continue;
        }
        for (int n = 2; a.kind == zelSyncAction::Conflict && fs.Exists(to) && n < 1000; ++n)
            to = Root(a.toSecond) + QLatin1Char('/') +
                 ConflictName(a.path, QDateTime::currentDateTime(), n);
        const QString folder = to.left(to.lastIndexOf(QLatin1Char('/')));
        const QString temp = folder + QLatin1Char('/') + TempPrefix +
                             QString::number(QRandomGenerator::global()->generate64(), 36) +
                             QStringLiteral(".part");
        QString error;
        if (!fs.MakeFolder(folder) || !fs.CopyFile(from, temp, error) ||
            !fs.Rename(temp, to, error)) {
            fs.Remove(temp);
            fail(a.path + QStringLiteral(": ") +
                 (error.isEmpty() ? QStringLiteral("cannot create ") + folder : error));
            continue;
        }
        ++(a.kind == zelSyncAction::Copy ? summary.copied : summary.conflicts);
        handled << a.path << to.mid(Root(a.toSecond).size() + 1);
    }
    // Only what this run brought into step is remembered: a file it failed
    // on or never reached is judged again next time as it was before.
    for (const QString &path : std::as_const(handled)) {
        zel::FileEntry l, s;
        if (fs.Stat(m_local + QLatin1Char('/') + path, l) &&
            fs.Stat(m_second + QLatin1Char('/') + path, s))
            m_state.insert(path.toLower(), {{l.size, msecsOf(l)}, {s.size, msecsOf(s)}});
    }
    SaveState(summary);
    return summary;
}

void zelSyncEngine::SaveState(zelSyncSummary &summary)
{
    QJsonObject files;
    for (auto it = m_state.begin(); it != m_state.end(); ++it)
        files.insert(it.key(), QJsonArray{double(it->local.size), double(it->local.msecs),
                                          double(it->second.size), double(it->second.msecs)});
    const QJsonObject root{
        {"Version", 1}, {"Local", m_local}, {"Second", m_second}, {"Files", files}};
    QString error;
    if (!zel::fileSystem().WriteFile(m_stateFile, QJsonDocument(root).toJson(), error)) {
        ++summary.errors;
        summary.problems << QStringLiteral("what this run did could not be remembered: ") + error;
    }
}
