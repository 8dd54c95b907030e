// The file explorer as a host and a user meet it, on real folders made for
// each test: which files a filter lists and in which order, the Selected
// flags against the list's rows, the events and their order, the splitter's
// clamps, Initialize, and folders that cannot be listed.

#include "files/zelFileExp.h"
#include "platform/zelLateBinding.h"
#include "platform/zelPlatform.h"
#include "wizard/zelPane.h"
#include "wizard/zelWizard.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QDir>
#include <QFile>
#include <QMouseEvent>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#ifdef Q_OS_LINUX
#include <sys/fsuid.h>
#include <unistd.h>
#endif

namespace {

// A folder with four data files, a hidden one and a subfolder.
struct Folder
{
    QTemporaryDir dir;
    explicit Folder(const QStringList &names = {"b.SHP", "a.shp", "c.txt", "d.dbf", ".hidden"})
    {
        for (const QString &n : names) {
            QFile f(dir.filePath(n));
            if (!f.open(QIODevice::WriteOnly) || f.write("data") != 4)
                qFatal("cannot write %s", qPrintable(f.fileName()));
        }
        QDir(dir.path()).mkdir(QStringLiteral("sub"));
        QFile::setPermissions(dir.path(), QFileDevice::Permissions(0x7755));
    }
    QString path(const QString &below = QString()) const
    {
        return QDir::toNativeSeparators(below.isEmpty() ? dir.path() : dir.filePath(below));
    }
};

// Every event of the explorer, with its arguments, in the order raised.
QStringList *record(zelFileExp &x)
{
    auto *log = new QStringList;
    QObject::connect(&x, &QObject::destroyed, [log] { delete log; });
    auto say = [log](const QString &s) { log->append(s); };
    QObject::connect(&x, &zelFileExp::StartProgress, [say](double a, double b) {
        say(QStringLiteral("StartProgress %1 %2").arg(a).arg(b));
    });
    QObject::connect(&x, &zelFileExp::UpdateProgress,
                     [say](double v) { say(QStringLiteral("UpdateProgress %1").arg(v)); });
    QObject::connect(&x, &zelFileExp::EndProgress, [say] { say(QStringLiteral("EndProgress")); });
    QObject::connect(&x, &zelFileExp::FolderChanged,
                     [say](const QString &f) { say(QStringLiteral("FolderChanged ") + f); });
    QObject::connect(&x, &zelFileExp::SelectionChanged,
                     [say] { say(QStringLiteral("SelectionChanged")); });
    QObject::connect(&x, &zelFileExp::FilterChanged, [say](const zelFileFilter::Ptr &f) {
        say(QStringLiteral("FilterChanged ") + (f ? f->Key() : QStringLiteral("nothing")));
    });
    QObject::connect(&x, &zelFileExp::SplitterChanged,
                     [say](qint32 l) { say(QStringLiteral("SplitterChanged %1").arg(l)); });
    return log;
}

QTreeView *rowsOf(zelFileExp &x)
{
    return x.findChild<QTreeView *>(QStringLiteral("lvwImport"));
}

QStringList names(zelFileExp &x)
{
    QStringList list;
    const QAbstractItemModel *m = rowsOf(x)->model();
    for (int r = 0; r < m->rowCount(); ++r)
        list << m->index(r, 0).data().toString();
    return list;
}

// The first row whose file, name or selection differs from the file list's.
QString outOfStep(zelFileExp &x)
{
    const QStringList rows = names(x);
    if (rows.size() != x.FileList()->Count())
        return QStringLiteral("%1 rows, %2 files").arg(rows.size()).arg(x.FileList()->Count());
    QItemSelectionModel *sel = rowsOf(x)->selectionModel();
    for (int r = 0; r < rows.size(); ++r) {
        const zelFile::Ptr f = x.FileList()->Item(r + 1);
        if (f->Name() != rows[r] || f->Selected() != sel->isRowSelected(r, {}))
            return QStringLiteral("row %1 (%2)").arg(r).arg(rows[r]);
    }
    return QString();
}

int selectedFiles(zelFileExp &x)
{
    int n = 0;
    for (const zelFile::Ptr &f : *x.FileList())
        n += f->Selected() ? 1 : 0;
    return n;
}

} // namespace

class tst_FileExp : public QObject
{
    Q_OBJECT

private slots:
    void filterListsInOrder_data()
    {
        zelColumns<QString, QStringList, int>({"pattern", "names", "errors"});
        const QStringList all{"a.shp", "b.SHP", "c.txt", "d.dbf"};
        zelRow("no filter", QString(), all, 0);
        zelRow("shapes first, then the rest", QStringLiteral("*.shp;*.*"), all, 0);
        zelRow("each file once", QStringLiteral("*.SHP;*.shp"), QStringList{"a.shp", "b.SHP"}, 0);
        zelRow("patterns in their order", QStringLiteral("?.dbf; *.txt"),
               QStringList{"d.dbf", "c.txt"}, 0);
        zelRow("empty", QStringLiteral(""), QStringList(), 1);
        zelRow("only separators", QStringLiteral(";;;"), QStringList(), 4);
        zelRow("a bracket is a character", QStringLiteral("["), QStringList(), 0);
    }
    void filterListsInOrder()
    {
        const auto [pattern, expected, errors] =
            zelFetch<QString, QStringList, int>({"pattern", "names", "errors"});
        zelTestScope scope;
        Folder folder;
        zelFileExp x;
        if (!pattern.isNull())
            x.Filters()->Create(QStringLiteral("f"), pattern);
        x.RefreshFilters();
        x.SelectFolder(folder.path());
        QCOMPARE(x.SelectedFolder(), folder.path());
        QCOMPARE(names(x), expected);
        QCOMPARE(outOfStep(x), QString());
        QCOMPARE(zelLoggedErrors(), errors);
        QCOMPARE(x.FileList()->Item(1) ? x.FileList()->Item(1)->Folder() : folder.path(),
                 folder.path());
    }

    void selectedFlagsFollowTheRows_data()
    {
        zelColumns<bool, bool, int, int>({"autoSelect", "multiSelect", "listed", "clicked"});
        zelRow("by hand, several", false, true, 0, 2);
        zelRow("at once, several", true, true, 4, 2);
        zelRow("at once, one", true, false, 1, 1);
        zelRow("by hand, one", false, false, 0, 1);
    }
    void selectedFlagsFollowTheRows()
    {
        const auto [autoSelect, multiSelect, listed, clicked] =
            zelFetch<bool, bool, int, int>({"autoSelect", "multiSelect", "listed", "clicked"});
        zelTestScope scope;
        Folder folder;
        zelFileExp x;
        x.resize(600, 400);
        x.show();
        x.SetAutoSelect(autoSelect);
        x.SetMultiSelect(multiSelect);
        x.SelectFolder(folder.path());
        // Every file was made selected; the listing leaves what the rows say.
        QCOMPARE(selectedFiles(x), listed);
        QCOMPARE(outOfStep(x), QString());
        // The user selects rows 2 and 3 (one of them where only one may be).
        QTreeView *view = rowsOf(x);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                          view->visualRect(view->model()->index(1, 0)).center());
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                          view->visualRect(view->model()->index(2, 0)).center());
        QCOMPARE(selectedFiles(x), clicked);
        QCOMPARE(outOfStep(x), QString());
        // The host takes a file out and puts another in: the rows follow and
        // the flags keep their values.
        QVERIFY(x.FileList()->Remove(1));
        QVERIFY(x.FileList()->Create(folder.path(QStringLiteral("sub")), QString(), true));
        QCOMPARE(selectedFiles(x), clicked + 1);
        QCOMPARE(outOfStep(x), QString());
        x.SetMultiSelect(true);
        x.SetMultiSelect(false); // the current row keeps its selection, alone
        QCOMPARE(selectedFiles(x), 1);
        QCOMPARE(outOfStep(x), QString());
    }

    void eventsInOrder()
    {
        zelTestScope scope;
        Folder folder;
        zelFileExp x;
        QStringList &log = *record(x);
        const QString changed = QStringLiteral("FolderChanged ") + folder.path();
        x.SelectFolder(folder.path());
        QCOMPARE(log, QStringList({"SelectionChanged", changed}));
        log.clear();
        x.SelectFolder(folder.path() + QDir::separator()); // the same folder is listed again
        QCOMPARE(log, QStringList({"SelectionChanged", changed}));
        log.clear();
        x.Filters()->Create(QStringLiteral("shp"), QStringLiteral("*.shp"),
                            QStringLiteral("Shapes"));
        x.Filters()->Create(QStringLiteral("all"), QStringLiteral("*.*"));
        x.RefreshFilters();
        x.SelectFilter(QStringLiteral("ALL"));
        x.SelectFilter(QStringLiteral("none"));
        QCOMPARE(log, QStringList({"SelectionChanged", "FilterChanged shp", "SelectionChanged",
                                   "FilterChanged all"}));
        QVERIFY(!x.SelectedFilter());
        x.SelectFilter(2);
        x.RefreshFilters(); // keeps the chosen filter
        QCOMPARE(x.SelectedFilter()->Key(), QStringLiteral("all"));
        QCOMPARE(names(x).size(), 4);

        // A long listing reports its progress before the usual events.
        QStringList many;
        for (int i = 0; i < 1100; ++i)
            many << QStringLiteral("f%1.txt").arg(i);
        Folder big(many);
        log.clear();
        x.SelectFolder(big.path());
        QCOMPARE(log,
                 QStringList({"StartProgress 0 1100", "UpdateProgress 1024", "UpdateProgress 1100",
                              "EndProgress", "SelectionChanged", "FolderChanged " + big.path()}));
        QCOMPARE(x.FileList()->Count(), 1100);
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void splitterStopsAtItsClamps_data()
    {
        // The control is 9000 x 6000 twips at 96 DPI (15 twips a pixel) and at 144 (10).
        zelColumns<bool, qint32, qint32, int>({"drag", "to", "left", "twipsPerPixel"});
        zelRow("set far left", false, -1000000000, 3000, 15);
        zelRow("set far right", false, 1000000000, 7000, 15);
        zelRow("set within", false, 4000, 4000, 15);
        zelRow("dragged to 1000", true, 1000, 3000, 15);
        zelRow("dragged beyond the right", true, 20000, 7000, 15);
        zelRow("dragged within", true, 5010, 5010, 15);
        zelRow("set far right, 144 DPI", false, 1000000000, 7000, 10);
        zelRow("dragged within, 144 DPI", true, 5010, 5010, 10);
        zelRow("dragged beyond the right, 144 DPI", true, 20000, 7000, 10);
    }
    void splitterStopsAtItsClamps()
    {
        const auto [drag, to, left, tpp] =
            zelFetch<bool, qint32, qint32, int>({"drag", "to", "left", "twipsPerPixel"});
        zelTestScope scope;
        scope.fake().twipsPerPixel = tpp;
        QWidget form;
        auto *x = new zelFileExp(&form);
        x->resize(9000 / tpp, 6000 / tpp);
        form.show();
        QStringList &log = *record(*x);
        QWidget *bar = x->findChild<QWidget *>(QStringLiteral("txtSplitter"));
        if (drag) {
            auto send = [bar](QEvent::Type type, int xPixels, Qt::MouseButtons buttons) {
                QMouseEvent e(type, QPointF(xPixels, 5), bar->mapToGlobal(QPointF(xPixels, 5)),
                              Qt::LeftButton, buttons, {});
                QCoreApplication::sendEvent(bar, &e);
            };
            send(QEvent::MouseMove, 30, {}); // no press, no drag
            QCOMPARE(x->SplitterLeft(), 3300);
            send(QEvent::MouseButtonPress, 0, Qt::LeftButton);
            QCOMPARE(x->SplitterColor(), 0x8000000Cu);
            send(QEvent::MouseMove, (to - 3300) / tpp, Qt::LeftButton);
            send(QEvent::MouseButtonRelease, 0, {});
            QCOMPARE(x->SplitterColor(), 0x8000000Fu);
        } else {
            QVERIFY(zel::SetProperty(x, QStringLiteral("SplitterLeft"), to));
        }
        QCOMPARE(x->SplitterLeft(), left);
        QCOMPARE(log, QStringList{QStringLiteral("SplitterChanged %1").arg(left)});
        const zel::zelFileExpLayout &l = x->Layout();
        QCOMPARE(l.Splitter.left(), left);
        QCOMPARE(l.Tree.left() + l.Tree.width(), left);
        QCOMPARE(l.List.left(), left + 120);
        QCOMPARE(bar->x(), zel::TwipsToPixels(left));
    }

    // A wizard of two panes: a plain pane, then the explorer as the last.
    void drivenAsAPaneByAWizard()
    {
        zelTestScope scope;
        Folder folder;
        QWidget form;
        auto *wiz = new zelWizard(&form);
        wiz->resize(700, 450);
        auto *start = new zelPane(wiz);
        start->SetPane(QStringLiteral("Start"));
        start->SetNextPane(QStringLiteral(" files "));
        start->SetIsFirstPane(true);
        auto *x = new zelFileExp(wiz);
        x->SetPane(QStringLiteral("Files"));
        x->SetIsLastPane(true);
        x->SetPreviousPane(QStringLiteral("elsewhere"));
        QStringList log;
        QObject::connect(x, &zelFileExp::EnterPane, [&](ZEL_Controls_WizardDirections d) {
            log << QStringLiteral("Enter %1").arg(int(d));
            x->SelectFolder(folder.path());
        });
        // The host keeps the user on the pane until a file is chosen.
        QObject::connect(x, &zelFileExp::LeavePane, [&](ZEL_Controls_WizardDirections d, bool &c) {
            c = x->FileList()->Count() == 0 || !x->FileList()->Item(1)->Selected();
            log << QStringLiteral("Leave %1 %2").arg(int(d)).arg(c ? "stays" : "goes");
        });
        QObject::connect(wiz, &zelWizard::Finish, [&] { log << QStringLiteral("Finish"); });
        auto button = [wiz](const char *n) { return wiz->findChild<QPushButton *>(n); };
        form.show();
        QCOMPARE(wiz->CurrentPane(), QStringLiteral("Start"));
        QVERIFY(x->isHidden());
        button("cmdNext")->click();
        QCOMPARE(wiz->CurrentPane(), QStringLiteral("Files"));
        QCOMPARE(x->PreviousPane(), QStringLiteral("Start"));
        QCOMPARE(x->FileList()->Count(), 4);
        // A last pane: Finish shown, Next not usable; Finish usable once the pane says so.
        QVERIFY(!button("cmdFinish")->isHidden() && !button("cmdNext")->isEnabled());
        QVERIFY(!button("cmdFinish")->isEnabled());
        x->SetCanFinish(true);
        QVERIFY(button("cmdFinish")->isEnabled());
        button("cmdBack")->click();
        QCOMPARE(wiz->CurrentPane(), QStringLiteral("Files"));
        rowsOf(*x)->selectionModel()->select(rowsOf(*x)->model()->index(0, 0),
                                             QItemSelectionModel::Select);
        button("cmdFinish")->click();
        QCOMPARE(log, QStringList({"Enter 2", "Leave 1 stays", "Leave 0 goes", "Finish"}));
        // The wizard switches the explorer's widgets with its own Enabled.
        wiz->SetEnabled(false);
        QVERIFY(!rowsOf(*x)->isEnabled());
        QCOMPARE(zelLoggedErrors(), 0);
    }

    void initializeActsOnce()
    {
        zelTestScope scope;
        zelFileExp x;
        QCOMPARE(x.AppName(), QStringLiteral("Quorvane"));
        x.Filters()->Create(QStringLiteral("shp"), QStringLiteral("*.shp"));
        x.SetPreviousPane(QStringLiteral("start"));
        x.SetCanBack(false);
        x.Initialize(QStringLiteral("Collector"), QStringLiteral("german"));
        QCOMPARE(x.AppName(), QStringLiteral("Collector"));
        QCOMPARE(x.Filters()->Count(), 0);
        QVERIFY(x.CanBack());
        x.Filters()->Create(QStringLiteral("shp"), QStringLiteral("*.shp"));
        x.Initialize(QStringLiteral("Other"));
        QCOMPARE(x.AppName(), QStringLiteral("Collector"));
        QCOMPARE(x.Filters()->Count(), 1);
    }

    void foldersThatCannotBeListed_data()
    {
        zelColumns<QString, bool, int>({"folder", "listed", "errors"});
        zelRow("empty path", QString(), false, 1);
        zelRow("100000 characters", QString(100000, QLatin1Char('d')), false, 1);
        zelRow("a file", QStringLiteral("c.txt"), false, 1);
        zelRow("vanished", QStringLiteral("gone"), false, 1);
        zelRow("unreadable", QStringLiteral("sub/locked"), true, 1);
        zelRow("through a link loop", QStringLiteral("sub/up/sub/up/sub"), true, 0);
    }
    void foldersThatCannotBeListed()
    {
        const auto [below, listed] = zelFetch<QString, bool>({"folder", "listed"});
        zelTestScope scope;
        Folder folder;
        QDir sub(folder.path(QStringLiteral("sub")));
        QVERIFY(sub.mkdir(QStringLiteral("locked")) && sub.mkdir(QStringLiteral("gone")));
        QFile(sub.filePath(QStringLiteral("locked/x.shp"))).open(QIODevice::WriteOnly);
        QFile::setPermissions(sub.filePath(QStringLiteral("locked")), {});
        // A folder link back up, and two file links that lead round in a loop.
        QVERIFY(QFile::link(QStringLiteral(".."), sub.filePath(QStringLiteral("up"))));
        QVERIFY(QFile::link(QStringLiteral("b.lnk"), sub.filePath(QStringLiteral("a.lnk"))));
        QVERIFY(QFile::link(QStringLiteral("a.lnk"), sub.filePath(QStringLiteral("b.lnk"))));
        zelFileExp x;
        x.SelectFolder(folder.path());
        QVERIFY(sub.rmdir(QStringLiteral("gone")));
        zelCaptureLogger::errors.clear();
        QStringList &log = *record(x);
        const QString path = below.isNull()          ? QString()
                             : below.startsWith('d') ? below
                             : below == "gone"       ? folder.path("sub/gone")
                                                     : folder.path(below);
#ifdef Q_OS_LINUX
        // Root reads any folder; without its file-system rights it reads as a user.
        const bool root = ::geteuid() == 0;
        if (root)
            ::setfsuid(65534);
#endif
        x.SelectFolder(path);
#ifdef Q_OS_LINUX
        if (root)
            ::setfsuid(0);
#endif
        QTEST(zelLoggedErrors(), "errors");
        QCOMPARE(log.contains(QStringLiteral("FolderChanged ") + QDir::cleanPath(path)), listed);
        QCOMPARE(names(x).size(), listed ? 0 : 4);
        QCOMPARE(outOfStep(x), QString());
        QFile::setPermissions(sub.filePath(QStringLiteral("locked")), QFileDevice::ReadOwner |
                                                                          QFileDevice::WriteOwner |
                                                                          QFileDevice::ExeOwner);
    }
};

QTEST_MAIN(tst_FileExp)
#include "tst_fileexp.moc"
