// Synchronised folders on temporary trees: what each direction copies, that
// nothing is ever deleted or half written, conflicts keeping both versions,
// refusals of folders that cannot be kept in step, the list's round trip
// through the settings store, and the form's OK and Cancel.

#include "buttons/zelPrpButtons.h"
#include "grid/zelGridList.h"
#include "platform/zelFileSystem.h"
#include "syncfolders/frmSyncFolder.h"
#include "syncfolders/zelSyncFolderList.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QDialog>
#include <QDirIterator>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QDateTime Base(QDate(2024, 5, 1), QTime(12, 0), Qt::UTC);

// "a=1@10;d/b=2": file a holding "1" changed 10 minutes after Base, d/b holding "2".
void put(const QString &root, const QString &files)
{
    for (const QString &item : files.split(';', Qt::SkipEmptyParts)) {
        const QString name = item.section('=', 0, 0), rest = item.section('=', 1);
        QDir().mkpath(QFileInfo(root + '/' + name).path());
        QFile f(root + '/' + name);
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(rest.section('@', 0, 0).toUtf8());
        f.close(); // a write still open would change the time again
        f.open(QIODevice::Append);
        f.setFileTime(Base.addSecs(rest.section('@', 1).toInt() * 60),
                      QFileDevice::FileModificationTime);
    }
}

// The tree as "a=1;d/b=2", names sorted; a conflict copy shows as "a*".
QString tree(const QString &root)
{
    QStringList items;
    QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile f(path);
        f.open(QIODevice::ReadOnly);
        QString name = QDir(root).relativeFilePath(path);
        name.replace(QRegularExpression(" \\(conflict [0-9- ]+\\)"), "*");
        items << name + '=' + QString::fromUtf8(f.readAll());
    }
    items.sort();
    return items.join(';');
}

// Two folders, a list for the application "Test" with one folder over them,
// and the settings and remembered state inside the temporary folder.
struct Trees
{
    zelTestScope scope;
    QTemporaryDir dir;
    QString local = dir.path() + "/local", second = dir.path() + "/second";
    zelSyncFolderList list;
    std::shared_ptr<zelSyncFolder> folder;

    explicit Trees(int direction = ZEL_SyncBothWays, const QString &pattern = {})
    {
        qputenv("ZEL_USER_SETTINGS", (dir.path() + "/user.ini").toUtf8());
        qputenv("ZEL_DATA_DIR", (dir.path() + "/data").toUtf8());
        QDir().mkpath(local);
        QDir().mkpath(second);
        list.SetApplication("Test");
        folder = list.Folders()->Create("Maps", local, second, direction, pattern);
    }
    QString both() const { return tree(local) + " | " + tree(second); }
};

// Copies that break: after half the file (the copy's own clean-up lost), or
// at the rename; the one named `name` only.
struct BreakingFileSystem : zel::FileSystem
{
    QString name, how;
    bool CopyFile(const QString &from, const QString &to, QString &error) override
    {
        if (how != "copy" || !from.endsWith('/' + name))
            return FileSystem::CopyFile(from, to, error);
        QFile in(from), out(to);
        in.open(QIODevice::ReadOnly);
        out.open(QIODevice::WriteOnly);
        out.write(in.read(in.size() / 2));
        error = "device full";
        return false;
    }
    bool Rename(const QString &from, const QString &to, QString &error) override
    {
        return how == "rename" && to.endsWith('/' + name) ? (error = "locked", false)
                                                          : FileSystem::Rename(from, to, error);
    }
};

} // namespace

class tst_SyncFolders : public QObject
{
    Q_OBJECT

private slots:
    void directions_data()
    {
        zelColumns<int, QString, QString, QString, QString>(
            {"direction", "pattern", "local", "second", "after"});
        zelRow("new files both ways", int(ZEL_SyncBothWays), QString(), QString("a=1;d/e/f=3"),
               QString("b=2"), QString("a=1;b=2;d/e/f=3 | a=1;b=2;d/e/f=3"));
        zelRow("to second only", int(ZEL_SyncToSecond), QString(), QString("a=1"), QString("b=2"),
               QString("a=1 | a=1;b=2"));
        zelRow("from second only", int(ZEL_SyncFromSecond), QString(), QString("a=1"),
               QString("b=2"), QString("a=1;b=2 | b=2"));
        zelRow("newer replaces older", int(ZEL_SyncBothWays), QString(), QString("a=old@0"),
               QString("a=new@10"), QString("a=new | a=new"));
        zelRow("newer kept against the direction", int(ZEL_SyncToSecond), QString(),
               QString("a=old@0"), QString("a=new@10"), QString("a=old | a=new"));
        zelRow("pattern", int(ZEL_SyncToSecond), QString("*.txt; *.SHP"),
               QString("a.txt=1;b.dat=2;c.shp=3"), QString(),
               QString("a.txt=1;b.dat=2;c.shp=3 | a.txt=1;c.shp=3"));
    }
    void directions()
    {
        const auto [direction, pattern, local, second] =
            zelFetch<int, QString, QString, QString>({"direction", "pattern", "local", "second"});
        Trees t(direction, pattern);
        put(t.local, local);
        put(t.second, second);
        const QString before = t.both();
        const QStringList preview = t.list.Preview();
        QCOMPARE(t.both(), before);
        QVERIFY(!preview.isEmpty());
        const QString summary = t.list.Synchronise();
        QTEST(t.both(), "after");
        QVERIFY2(summary.contains(" 0 errors"), qPrintable(summary));
        QVERIFY(t.folder->LastSync().isValid());
        // A second run finds everything in step.
        QVERIFY(t.list.Synchronise().contains("0 copied, 0 conflicts kept"));
        QTEST(t.both(), "after");
    }

    void conflictKeepsBoth_data()
    {
        zelColumns<int, QString>({"direction", "after"});
        zelRow("both ways", int(ZEL_SyncBothWays), QString("a*=theirs;a=mine | a*=mine;a=theirs"));
        zelRow("to second", int(ZEL_SyncToSecond), QString("a=mine | a*=mine;a=theirs"));
        zelRow("from second", int(ZEL_SyncFromSecond), QString("a*=theirs;a=mine | a=theirs"));
    }
    void conflictKeepsBoth()
    {
        QFETCH(int, direction);
        Trees t(direction);
        put(t.local, "a=base@0");
        put(t.second, "a=base@0");
        t.list.Synchronise();
        put(t.local, "a=mine@5");
        put(t.second, "a=theirs@9");
        QVERIFY(t.list.Preview().join('\n').contains("Conflict: a changed on both sides"));
        QVERIFY(!t.list.Synchronise().contains(" 0 conflicts kept"));
        t.list.Synchronise(); // the kept version spreads; neither original is touched
        QTEST(t.both(), "after");
        QVERIFY(t.list.Synchronise().contains("0 copied, 0 conflicts kept")); // and stays put
    }

    void brokenCopyLeavesNoPartialFile_data()
    {
        zelColumns<QString>({"how"});
        zelRow("copy breaks half way", QString("copy"));
        zelRow("rename refused", QString("rename"));
    }
    void brokenCopyLeavesNoPartialFile()
    {
        QFETCH(QString, how);
        Trees t(ZEL_SyncToSecond);
        auto fs = std::make_unique<BreakingFileSystem>();
        fs->name = "big";
        fs->how = how;
        auto previous = zel::SetFileSystem(std::move(fs));
        put(t.local, "big=0123456789@10;small=s@10");
        put(t.second, "big=old@0;.zelsync-died.part=half");
        const QString summary = t.list.Synchronise();
        zel::SetFileSystem(std::move(previous));
        QVERIFY2(summary.contains("1 copied") && summary.contains("1 errors"), qPrintable(summary));
        QCOMPARE(tree(t.second), QString("big=old;small=s"));
        QVERIFY(zelLoggedErrors("zelSyncFolderList.Synchronise") > 0);
        // The failed file is tried again on the next run.
        QVERIFY(t.list.Synchronise().contains("1 copied"));
        QCOMPARE(tree(t.second), QString("big=0123456789;small=s"));
    }

    void interferenceDuringRun_data()
    {
        zelColumns<QString, QString, QString>({"act", "after", "summary"});
        zelRow("source removed", QString("remove"), QString("b=2;c=3"), QString("2 copied"));
        zelRow("cancelled", QString("cancel"), QString("a=1"), QString("cancelled"));
    }
    void interferenceDuringRun()
    {
        const auto [act, summary] = zelFetch<QString, QString>({"act", "summary"});
        Trees t(ZEL_SyncToSecond);
        put(t.local, "a=1;b=2;c=3");
        QStringList seen;
        connect(&t.list, &zelSyncFolderList::Progress,
                [&, act = act](const QString &, const QString &sFile, qint32 lDone, qint32 lTotal,
                               bool &bCancel) {
                    seen << QString("%1/%2 %3").arg(lDone).arg(lTotal).arg(sFile);
                    if (act == "remove" && lDone == 0)
                        QFile::remove(t.local + '/' + sFile);
                    bCancel = act == "cancel" && lDone == 1;
                });
        QVERIFY(t.list.Synchronise().contains(summary));
        QTEST(tree(t.second), "after");
        QCOMPARE(seen.first(), QString("0/3 a"));
        QCOMPARE(tree(t.local).isEmpty(), false); // nothing deleted by the run
        QCOMPARE(t.folder->LastSync().isValid(), act != "cancel");
    }

    void refusals_data()
    {
        zelColumns<QString, QString, QString>({"local", "second", "why"});
        zelRow("missing folder", QString("local"), QString("nowhere"), QString("does not exist"));
        zelRow("same folder", QString("local"), QString("local/../local"), QString("same folder"));
        zelRow("second inside", QString("local"), QString("local/sub"), QString("inside"));
        zelRow("local inside", QString("local/sub"), QString("local"), QString("inside"));
        zelRow("nothing named", QString(""), QString("local"), QString("does not exist"));
    }
    void refusals()
    {
        const auto [local, second, why] =
            zelFetch<QString, QString, QString>({"local", "second", "why"});
        Trees t;
        put(t.local, "a=1;sub/b=2");
        t.folder->SetLocalFolder(local.isEmpty() ? local : t.dir.path() + '/' + local);
        t.folder->SetSecondFolder(t.dir.path() + '/' + second);
        const QString before = tree(t.dir.path());
        QVERIFY(t.list.Preview().value(0).contains(why));
        QVERIFY(t.list.Synchronise().contains("1 errors"));
        QVERIFY(zelLoggedErrors("zelSyncFolderList.Synchronise") > 0);
        QCOMPARE(tree(t.dir.path()).remove(QRegularExpression(";?user.ini=[^;]*")), before);
    }

    void awkwardTrees_data()
    {
        zelColumns<QString, QString, QString>({"local", "after", "problem"});
        zelRow("names differ in case", QString("a=1;A=2;b=3"), QString("b=3"),
               QString("differ only in letter case"));
        zelRow("link loop", QString("x=1;d/y=2"), QString("d/y=2;x=1"), QString("link loop"));
    }
    void awkwardTrees()
    {
        const auto [local, problem] = zelFetch<QString, QString>({"local", "problem"});
        Trees t(ZEL_SyncToSecond);
        put(t.local, local);
        QFile::link(t.local, t.local + "/d/loop");
        QVERIFY(t.list.Preview().join('\n').contains(problem));
        QVERIFY(t.list.Synchronise().contains("1 errors"));
        QTEST(tree(t.second), "after");
    }

    void settingsRoundTrip()
    {
        Trees t(ZEL_SyncFromSecond, "*.shp");
        t.folder->SetEnabled(false);
        t.folder->SetLastSync(Base);
        t.list.Folders()->Create("Second, with \"quotes\"\\ and = signs", "/a", "/b");
        QVERIFY(t.list.Save());
        zelSyncFolderList back;
        back.SetApplication("Test");
        QVERIFY(back.Load());
        QCOMPARE(back.Folders()->Count(), 2);
        for (int i = 1; i <= 2; ++i)
            for (const char *name : {"Name", "LocalFolder", "SecondFolder", "Direction", "Pattern",
                                     "Enabled", "LastSync"})
                QCOMPARE(back.Folders()->Item(i)->property(name),
                         t.list.Folders()->Item(i)->property(name));
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void garbageSettings_data()
    {
        zelColumns<QString, QString, int>({"ini", "loaded", "errors"});
        const QString good =
            "Folder1\\Name=Good\nFolder1\\LocalFolder=/a\nFolder1\\SecondFolder=/b\n"
            "Folder1\\Direction=1\n";
        zelRow("direction out of range", good + "Folder2\\Name=Bad\nFolder2\\Direction=7\n",
               QString("Good"), 1);
        zelRow("name twice", good + "Folder3\\Name=good\nFolder3\\Direction=0\n", QString("Good"),
               1);
        zelRow("list where text belongs", good + "Folder4\\Name=a, b\nFolder4\\Direction=0\n",
               QString("Good"), 1);
        zelRow("bad time kept folder",
               QString(good).replace("Direction=1", "Direction=1\nFolder1\\LastSync=soon"),
               QString("Good"), 1);
        zelRow("stray keys and bytes", good + "Count=-5\nFolderX\\Name=?\n\xff\xfe=\x01\n",
               QString("Good"), 0);
    }
    void garbageSettings()
    {
        const auto [ini, loaded, errors] =
            zelFetch<QString, QString, int>({"ini", "loaded", "errors"});
        Trees t;
        QFile f(t.dir.path() + "/user.ini");
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(
            "[SyncFolders]\n" +
            QString(ini).replace(QRegularExpression("(?m)^(?=Folder|Count)"), "Test\\").toUtf8());
        f.close();
        QVERIFY(t.list.Load());
        QStringList names;
        for (const auto &folder : *t.list.Folders())
            names << folder->Name();
        QCOMPARE(names.join(','), loaded);
        QCOMPARE(zelLoggedErrors("zelSyncFolderList.Load"), errors);
    }

    void form_data()
    {
        zelColumns<QStringList, QString, bool, QString, int>(
            {"answers", "button", "ok", "names", "messages"});
        zelRow("add, OK", QStringList{"second", "other"}, QString("cmdAdd"), true,
               QString("Maps,second"), 0);
        zelRow("add, Cancel", QStringList{"second", "other"}, QString("cmdAdd"), false,
               QString("Maps"), 0);
        zelRow("add same folder twice", QStringList{"other", "other"}, QString("cmdAdd"), true,
               QString("Maps"), 1);
        zelRow("add, dialog cancelled", QStringList{"other"}, QString("cmdAdd"), true,
               QString("Maps"), 0);
        zelRow("remove, OK", QStringList{}, QString("cmdRemove"), true, QString(""), 0);
        zelRow("remove, Cancel", QStringList{}, QString("cmdRemove"), false, QString("Maps"), 0);
    }
    void form()
    {
        const auto [answers, button, ok, names, messages] =
            zelFetch<QStringList, QString, bool, QString, int>(
                {"answers", "button", "ok", "names", "messages"});
        Trees t;
        t.list.Save();
        QDir().mkpath(t.dir.path() + "/other");
        for (const QString &a : answers)
            t.scope.fake().folderAnswers << t.dir.path() + '/' + a;
        t.scope.fake().dialogAnswer = [&, button = button, ok = ok](QDialog &form) {
            form.findChild<zelPrpButtons *>("mpbProps")->findChild<QPushButton *>(button)->click();
            return ok ? QDialog::Accepted : QDialog::Rejected;
        };
        QCOMPARE(t.list.Edit(), ok);
        zelSyncFolderList stored;
        stored.SetApplication("Test");
        stored.Load();
        for (zelSyncFolderList *l : {&t.list, &stored}) {
            QStringList got;
            for (const auto &folder : *l->Folders())
                got << folder->Name();
            QCOMPARE(got.join(','), names);
        }
        QCOMPARE(t.scope.fake().messages.size(), messages);
    }

    void formCellEdits_data()
    {
        zelColumns<int, QString, QString, QString, QVariant>(
            {"column", "typed", "shown", "property", "value"});
        zelRow("name taken", int(frmSyncFolder::ColName), QString("maps"), QString("maps 2"),
               QString("Name"), QVariant("maps 2"));
        zelRow("name emptied", int(frmSyncFolder::ColName), QString(" "), QString("Folder"),
               QString("Name"), QVariant("Folder"));
        zelRow("direction", int(frmSyncFolder::ColDirection), QString("From the second folder"),
               QString("From the second folder"), QString("Direction"),
               QVariant(int(ZEL_SyncFromSecond)));
        zelRow("no direction", int(frmSyncFolder::ColDirection), QString("Sideways"),
               QString("Both ways"), QString("Direction"), QVariant(int(ZEL_SyncBothWays)));
        zelRow("disabled", int(frmSyncFolder::ColEnabled), QString("No"), QString("No"),
               QString("Enabled"), QVariant(false));
        zelRow("pattern", int(frmSyncFolder::ColPattern), QString(" *.tif "), QString("*.tif"),
               QString("Pattern"), QVariant("*.tif"));
    }
    void formCellEdits()
    {
        const auto [column, typed, property, value] =
            zelFetch<int, QString, QString, QVariant>({"column", "typed", "property", "value"});
        Trees t;
        t.list.Folders()->Create("Other", "/a", "/b");
        frmSyncFolder form(*t.list.Folders());
        QString text = typed;
        emit form.findChild<zelGridList *>("glsFolders")->EditCellByRef(2, column, text);
        QTEST(text, "shown");
        QCOMPARE(form.Folders().at(1)->property(property.toLatin1()).toString(), value.toString());
        QCOMPARE(t.list.Folders()->Item(2)->Name(), QString("Other")); // the list waits for OK
    }
};

QTEST_MAIN(tst_SyncFolders)
#include "tst_syncfolders.moc"
