#pragma once

// The door to files and folders for the library's own file work (the
// synchronised folders). Every operation answers whether it worked and, when
// not, says why in error; none throws. Tests put a subclass in place with
// SetFileSystem to make a copy fail half way or a file vanish.

#include "zelCtrlExport.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace zel {

struct FileEntry
{
    QString path; // relative to the walked root, with "/" between folders
    qint64 size = 0;
    QDateTime modified; // UTC
};

class ZELCTRL_EXPORT FileSystem
{
public:
    virtual ~FileSystem();

    // The folder's canonical path (links resolved); empty when it is no
    // readable folder.
    virtual QString CanonicalFolder(const QString &folder);

    // Walks root and every folder below it, links followed, and lists the
    // files whose names match one of the wildcard patterns (none: all
    // files). A folder reached a second time (a link loop) is not walked
    // again and, like an unreadable folder, is named in problems.
    virtual QList<FileEntry> ListFiles(const QString &root, const QStringList &patterns,
                                       QStringList &problems);

    virtual bool Exists(const QString &path);
    // Size and time of last change of a file; false when there is no such file.
    virtual bool Stat(const QString &path, FileEntry &entry);
    // Copies from into a new file `to` (that must not exist), with the source's
    // time of last change. A copy that fails leaves no file `to` behind.
    virtual bool CopyFile(const QString &from, const QString &to, QString &error);
    // Puts from in to's place in one step, replacing what is there.
    virtual bool Rename(const QString &from, const QString &to, QString &error);
    virtual bool Remove(const QString &path);
    // Creates the folder and those above it.
    virtual bool MakeFolder(const QString &folder);

    // Whole small files: read (empty with error when unreadable), and
    // written through a temporary file so that a failed write keeps the old.
    virtual QByteArray ReadFile(const QString &path, QString &error);
    virtual bool WriteFile(const QString &path, const QByteArray &data, QString &error);

    // Where the library keeps what it remembers per application:
    // ZEL_DATA_DIR when set, else the application's data location.
    virtual QString DataLocation();
};

// The file system in force; the real one until a test installs its own.
ZELCTRL_EXPORT FileSystem &fileSystem();
// Installs fs (nullptr restores the real one) and answers the previous one.
ZELCTRL_EXPORT std::unique_ptr<FileSystem> SetFileSystem(std::unique_ptr<FileSystem> fs);

} // namespace zel
