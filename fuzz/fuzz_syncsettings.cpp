// A settings file of any content under [SyncFolders], loaded by a list of
// synchronised folders: bad entries give logged errors and are left out,
// never a crash; what the list then saves loads back as the same list.

#include "zelFuzzSupport.h"

#include "syncfolders/zelSyncFolderList.h"

#include <QCoreApplication>
#include <QFile>

namespace {

QStringList names(const zelSyncFolderList &list)
{
    QStringList out;
    for (const auto &f : *list.Folders())
        out << f->Name() + '|' + f->LocalFolder() + '|' + f->SecondFolder() + '|' +
                   QString::number(f->Direction()) + '|' + f->Pattern() + '|' +
                   QString::number(f->Enabled());
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // QSettings keeps parsed files by name: a new name per input.
    static int serial = 0;
    const QString file = QStringLiteral("/tmp/zelfuzz-sync-%1-%2.ini")
                             .arg(QCoreApplication::applicationPid())
                             .arg(serial++);
    {
        QFile f(file);
        zelfuzz::Check(f.open(QIODevice::WriteOnly) && f.write(reinterpret_cast<const char *>(data),
                                                               qint64(size)) == qint64(size),
                       "cannot write the settings file");
    }
    qputenv("ZEL_USER_SETTINGS", file.toUtf8());
    zelSyncFolderList list, back;
    list.SetApplication(QStringLiteral("App"));
    back.SetApplication(QStringLiteral("App"));
    zelfuzz::Check(list.Load(), "a named list always loads");
    zelfuzz::Check(list.Save(), "the settings file cannot be written");
    zelfuzz::Check(back.Load() && names(back) == names(list), "a saved list loads back changed");
    QFile::remove(file);
    return 0;
}
