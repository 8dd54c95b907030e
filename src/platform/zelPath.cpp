#include "platform/zelPath.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zel::path {

namespace {

// Qt's own separator; the native one is turned into it first.
qsizetype lastSeparator(const QString &p)
{
    return p.lastIndexOf(QLatin1Char('/'));
}

QString generic(const QString &path)
{
    return QDir::fromNativeSeparators(path);
}

#ifdef Q_OS_UNIX
qint64 msecsOf(const struct stat &st)
{
    return qint64(st.st_mtim.tv_sec) * 1000 + st.st_mtim.tv_nsec / 1000000;
}
#endif

} // namespace

QString FileName(const QString &path)
{
    const QString p = generic(path);
    return p.mid(lastSeparator(p) + 1);
}

QString Folder(const QString &path)
{
    const QString p = generic(path);
    const qsizetype at = lastSeparator(p);
    if (at < 0)
        return QString();
    return QDir::toNativeSeparators(at == 0 ? p.left(1) : p.left(at));
}

QString Extension(const QString &path)
{
    const QString name = FileName(path);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : name.mid(dot + 1);
}

QString NormalizeFolder(const QString &folder)
{
    if (folder.trimmed().isEmpty())
        return QString();
    return QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(generic(folder)).absoluteFilePath()));
}

FileFacts StatFile(const QString &path)
{
    FileFacts f;
    if (path.isEmpty())
        return f;
#ifdef Q_OS_UNIX
    struct stat st;
    if (::stat(QFile::encodeName(generic(path)).constData(), &st) != 0 || !S_ISREG(st.st_mode))
        return f;
    f.Exists = true;
    f.Size = st.st_size;
    f.Modified = QDateTime::fromMSecsSinceEpoch(msecsOf(st), Qt::UTC);
#else
    const QFileInfo info(generic(path));
    if (!info.isFile())
        return f;
    f.Exists = true;
    f.Size = info.size();
    f.Modified = info.lastModified().toUTC();
#endif
    return f;
}

FolderState StateOf(const QString &folder)
{
    if (folder.isEmpty())
        return FolderState::Missing;
    const QByteArray native = QFile::encodeName(generic(folder));
#ifdef Q_OS_UNIX
    struct stat st;
    if (::stat(native.constData(), &st) != 0)
        return errno == EACCES ? FolderState::Unreadable : FolderState::Missing;
    if (!S_ISDIR(st.st_mode))
        return FolderState::NotAFolder;
    DIR *d = ::opendir(native.constData());
    if (!d)
        return errno == ENOENT ? FolderState::Missing : FolderState::Unreadable;
    ::closedir(d);
    return FolderState::Folder;
#else
    const QFileInfo info(generic(folder));
    if (!info.exists())
        return FolderState::Missing;
    if (!info.isDir())
        return FolderState::NotAFolder;
    return QDir(info.filePath()).isReadable() ? FolderState::Folder : FolderState::Unreadable;
#endif
}

FolderListing ListFiles(const QString &folder)
{
    FolderListing out;
#ifdef Q_OS_UNIX
    // One pass of readdir and a stat relative to the open folder per entry:
    // a vanished folder or a failing device ends the walk with what was read.
    DIR *d = ::opendir(QFile::encodeName(generic(folder)).constData());
    if (!d) {
        out.Error = QString::fromLocal8Bit(std::strerror(errno));
        return out;
    }
    const int fd = ::dirfd(d);
    for (;;) {
        errno = 0;
        const dirent *e = ::readdir(d);
        if (!e) {
            if (errno != 0)
                out.Error = QString::fromLocal8Bit(std::strerror(errno));
            break;
        }
        if (e->d_name[0] == '.')
            continue; // hidden, and "." and ".."
        if (e->d_type != DT_REG && e->d_type != DT_LNK && e->d_type != DT_UNKNOWN)
            continue;
        struct stat st;
        // A link is followed; a link that leads nowhere or round in a loop fails here.
        if (::fstatat(fd, e->d_name, &st, 0) != 0 || !S_ISREG(st.st_mode))
            continue;
        out.Files.push_back({QFile::decodeName(e->d_name), qint64(st.st_size), msecsOf(st)});
    }
    ::closedir(d);
#else
    if (StateOf(folder) != FolderState::Folder) {
        out.Error = QStringLiteral("The folder cannot be read");
        return out;
    }
    QDirIterator it(generic(folder), QDir::Files);
    while (it.hasNext()) {
        it.next();
        const QFileInfo info = it.fileInfo();
        out.Files.push_back(
            {info.fileName(), info.size(), info.lastModified().toMSecsSinceEpoch()});
    }
#endif
    return out;
}

FilePattern::FilePattern(const QString &pattern) : m_pattern(pattern.toCaseFolded())
{
    m_any = m_pattern == QLatin1String("*.*") || m_pattern == QLatin1String("*");
}

bool FilePattern::Matches(QStringView name) const
{
    if (m_pattern.isEmpty())
        return false;
    if (m_any)
        return true;
    // Greedy matching that goes back to the last "*" on a mismatch: linear
    // for the patterns file filters use, never worse than name x pattern.
    const QStringView p(m_pattern);
    qsizetype n = 0, i = 0, star = -1, mark = 0;
    while (n < name.size()) {
        if (i < p.size() && p[i] == QLatin1Char('*')) {
            star = i++;
            mark = n;
        } else if (i < p.size() && (p[i] == QLatin1Char('?') || p[i] == name[n].toCaseFolded())) {
            ++i;
            ++n;
        } else if (star >= 0) {
            i = star + 1;
            n = ++mark;
        } else {
            return false;
        }
    }
    while (i < p.size() && p[i] == QLatin1Char('*'))
        ++i;
    return i == p.size();
}

} // namespace zel::path
