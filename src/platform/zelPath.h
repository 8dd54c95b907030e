#pragma once

// The path object of the utilities component and the file system as the file
// explorer reads it. Paths are split at the platform's own separator (and
// at "/", which Qt takes everywhere); what comes back uses the native one.
// Nothing here throws: a path that names nothing gives empty answers.

#include "zelCtrlExport.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <vector>

namespace zel::path {

// The part after the last separator ("Map.SHP" of ".../data/Map.SHP").
ZELCTRL_EXPORT QString FileName(const QString &path);
// The part before the last separator, without it; the root stays the root
// and a path without a separator has no folder ("").
ZELCTRL_EXPORT QString Folder(const QString &path);
// The file name's part after its last ".", letter case kept; "" without one.
ZELCTRL_EXPORT QString Extension(const QString &path);
// A folder as the explorer compares and shows it: native separators, "."
// and ".." resolved, no trailing separator except on a root. "" stays "".
ZELCTRL_EXPORT QString NormalizeFolder(const QString &folder);

// What the file system says of one file. Exists is false for a path that
// names no file (nothing, a folder, or a path the system refuses).
struct FileFacts
{
    bool Exists = false;
    qint64 Size = 0;
    QDateTime Modified; // in UTC; the caller shows it in local time
};
ZELCTRL_EXPORT FileFacts StatFile(const QString &path);

enum class FolderState
{
    Folder,     // a folder that can be read
    Missing,    // nothing there, or it went away
    NotAFolder, // a file (or another thing that is no folder)
    Unreadable  // a folder whose entries cannot be read
};
ZELCTRL_EXPORT FolderState StateOf(const QString &folder);

// The files of one folder (no subfolders, no hidden files, no links that
// lead nowhere), in the order the system gives them.
struct FolderEntry
{
    QString Name;
    qint64 Size = 0;
    qint64 ModifiedMSecs = 0; // since the epoch, UTC
};
struct FolderListing
{
    std::vector<FolderEntry> Files;
    // Empty when the whole folder was read; otherwise why it stopped (the
    // entries read until then are kept).
    QString Error;
};
ZELCTRL_EXPORT FolderListing ListFiles(const QString &folder);

// A file pattern with the platform's wildcards: "*" any run of characters,
// "?" any one, everything else itself, letters compared without regard to
// case. "*.*" matches every name, with or without an extension, as the
// system's own file dialogs have it. An empty pattern matches nothing.
class ZELCTRL_EXPORT FilePattern
{
public:
    explicit FilePattern(const QString &pattern);
    bool Matches(QStringView name) const;
    bool IsEmpty() const { return m_pattern.isEmpty(); }

private:
    QString m_pattern; // case-folded
    bool m_any = false;
};

} // namespace zel::path
