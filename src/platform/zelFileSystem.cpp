#include "platform/zelFileSystem.h"

#include "platform/zelPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>

namespace zel {

namespace {

std::unique_ptr<FileSystem> &current()
{
    static std::unique_ptr<FileSystem> fs = std::make_unique<FileSystem>();
    return fs;
}

// Deeper than any tree a person makes; a chain of links goes no further.
constexpr int MaxDepth = 128;

// One wildcard rule for the library: the file explorer's.
bool matchesAny(const std::vector<path::FilePattern> &patterns, const QString &name)
{
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const path::FilePattern &p) { return p.Matches(name); });
}

void walk(const QString &root, const QString &rel, const std::vector<path::FilePattern> &patterns,
          int depth, QSet<QString> &seen, QList<FileEntry> &out, QStringList &problems)
{
    const QString folder = rel.isEmpty() ? root : root + QLatin1Char('/') + rel;
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    if (canonical.isEmpty() || seen.contains(canonical)) {
        problems << QStringLiteral("link loop, not walked again: ") + folder;
        return;
    }
    if (depth > MaxDepth) {
        problems << QStringLiteral("folders nested too deep: ") + folder;
        return;
    }
    seen.insert(canonical);
    QDir dir(folder);
    if (!dir.isReadable()) {
        problems << QStringLiteral("folder not readable: ") + folder;
        return;
    }
    const QFileInfoList entries = dir.entryInfoList(
        QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    for (const QFileInfo &fi : entries) {
        const QString path = rel.isEmpty() ? fi.fileName() : rel + QLatin1Char('/') + fi.fileName();
        if (fi.isDir()) {
            walk(root, path, patterns, depth + 1, seen, out, problems);
        } else if (fi.isFile() && (patterns.empty() || matchesAny(patterns, fi.fileName()))) {
            out.append({path, fi.size(), fi.lastModified().toUTC()});
        } else if (fi.isSymLink() && !fi.exists()) {
            problems << QStringLiteral("broken link: ") + fi.filePath();
        }
    }
}

} // namespace

FileSystem::~FileSystem() = default;

QString FileSystem::CanonicalFolder(const QString &folder)
{
    const QFileInfo fi(folder);
    return folder.isEmpty() || !fi.isDir() || !fi.isReadable() ? QString() : fi.canonicalFilePath();
}

QList<FileEntry> FileSystem::ListFiles(const QString &root, const QStringList &patterns,
                                       QStringList &problems)
{
    QList<FileEntry> out;
    QSet<QString> seen;
    std::vector<path::FilePattern> compiled;
    for (const QString &p : patterns)
        compiled.emplace_back(p);
    walk(root, QString(), compiled, 0, seen, out, problems);
    return out;
}

bool FileSystem::Exists(const QString &path)
{
    return QFileInfo::exists(path) || QFileInfo(path).isSymLink();
}

bool FileSystem::Stat(const QString &path, FileEntry &entry)
{
    const path::FileFacts facts = path::StatFile(path);
    if (!facts.Exists)
        return false;
    entry = {path, facts.Size, facts.Modified};
    return true;
}

bool FileSystem::CopyFile(const QString &from, const QString &to, QString &error)
{
    QFile in(from), out(to);
    if (!in.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("cannot read ") + from + QStringLiteral(": ") + in.errorString();
        return false;
    }
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        error = QStringLiteral("cannot write ") + to + QStringLiteral(": ") + out.errorString();
        return false;
    }
    const QDateTime modified = QFileInfo(from).lastModified();
    QByteArray chunk;
    bool ok = true;
    while (ok && !in.atEnd()) {
        chunk = in.read(1 << 20);
        ok = in.error() == QFileDevice::NoError && out.write(chunk) == chunk.size();
    }
    ok = ok && out.flush() && in.error() == QFileDevice::NoError;
    if (ok)
        out.setFileTime(modified, QFileDevice::FileModificationTime);
    if (!ok) {
        error = QStringLiteral("copy of ") + from + QStringLiteral(" failed: ") +
                (in.error() != QFileDevice::NoError ? in.errorString() : out.errorString());
        out.close();
        out.remove();
    }
    return ok;
}

bool FileSystem::Rename(const QString &from, const QString &to, QString &error)
{
    // rename(2) replaces the target in one step; QFile::rename would not.
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return true;
    error = QStringLiteral("cannot put ") + from + QStringLiteral(" in place of ") + to;
    return false;
}

bool FileSystem::Remove(const QString &path)
{
    return QFile::remove(path);
}

bool FileSystem::MakeFolder(const QString &folder)
{
    return QDir().mkpath(folder);
}

QByteArray FileSystem::ReadFile(const QString &path, QString &error)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        error = f.errorString();
        return {};
    }
    return f.readAll();
}

bool FileSystem::WriteFile(const QString &path, const QByteArray &data, QString &error)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile f(path);
    if (f.open(QIODevice::WriteOnly) && f.write(data) == data.size() && f.commit())
        return true;
    error = f.errorString();
    return false;
}

QString FileSystem::DataLocation()
{
    const QString over = qEnvironmentVariable("ZEL_DATA_DIR");
    if (!over.isEmpty())
        return over;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Quorvane");
}

FileSystem &fileSystem()
{
    return *current();
}

std::unique_ptr<FileSystem> SetFileSystem(std::unique_ptr<FileSystem> fs)
{
    if (!fs)
        fs = std::make_unique<FileSystem>();
    current().swap(fs);
    return fs;
}

} // namespace zel
