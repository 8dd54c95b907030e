// The file explorer listing a folder through SelectFolder, against a plain
// Qt listing of the same folder in the same run: QDir with the same
// patterns, each file once, into a QStandardItemModel with name, size and
// date shown in a QTreeView. Folders of 10^4 and 10^5 files.
//
//   QT_QPA_PLATFORM=offscreen ./bench/bench_files
//
// Both views are shown and get one turn of the event loop after a listing,
// as a host's would once the host returns to its loop. Each listing also
// lets go of the one before, on both sides.

#include "files/zelFileExp.h"

#include "zelBench.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTreeView>

#include <memory>

namespace {

const QString Patterns = QStringLiteral("*.shp;*.*");

QTemporaryDir &root()
{
    static QTemporaryDir dir;
    return dir;
}

// A folder of n files, a quarter of them shape files, made once.
QString folder(int n)
{
    const QString path = root().filePath(QStringLiteral("files%1").arg(n));
    if (QDir(path).exists())
        return path;
    QDir(root().path()).mkdir(QStringLiteral("files%1").arg(n));
    for (int i = 0; i < n; ++i) {
        QFile f(path + QStringLiteral("/parcel_%1.%2")
                           .arg(i, 6, 10, QLatin1Char('0'))
                           .arg(i % 4 == 0 ? QStringLiteral("shp") : QStringLiteral("dbf")));
        if (!f.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(f.fileName()));
        f.write(QByteArray(i % 3000, 'x'));
    }
    return path;
}

void turnOfTheLoop()
{
    QCoreApplication::processEvents();
}

void BM_FileExp_SelectFolder(benchmark::State &state)
{
    const QString path = folder(int(state.range(0)));
    zelFileExp x;
    x.resize(900, 600);
    x.show();
    x.Filters()->Create(QStringLiteral("f"), Patterns);
    x.RefreshFilters();
    turnOfTheLoop();
    for (auto _ : state) {
        x.SelectFolder(path);
        turnOfTheLoop();
        if (x.FileList()->Count() != state.range(0))
            state.SkipWithError("not every file listed");
    }
}

std::unique_ptr<QStandardItemModel> listWithQDir(const QString &path)
{
    auto model = std::make_unique<QStandardItemModel>(0, 3);
    model->setHorizontalHeaderLabels(
        {QStringLiteral("Name"), QStringLiteral("Size"), QStringLiteral("Date")});
    QSet<QString> listed;
    const QDir dir(path);
    for (const QString &p : Patterns.split(QLatin1Char(';'))) {
        for (const QFileInfo &info : dir.entryInfoList({p}, QDir::Files)) {
            if (listed.contains(info.fileName()))
                continue;
            listed.insert(info.fileName());
            auto *date = new QStandardItem;
            date->setData(info.lastModified(), Qt::DisplayRole);
            model->appendRow({new QStandardItem(info.fileName()),
                              new QStandardItem(QString::number((info.size() + 1023) / 1024) +
                                                QStringLiteral(" KB")),
                              date});
        }
    }
    return model;
}

void BM_QDir_StandardModel(benchmark::State &state)
{
    const QString path = folder(int(state.range(0)));
    QTreeView view;
    view.setRootIsDecorated(false);
    view.setUniformRowHeights(true);
    view.resize(900, 600);
    view.show();
    std::unique_ptr<QStandardItemModel> shown;
    turnOfTheLoop();
    for (auto _ : state) {
        auto model = listWithQDir(path);
        view.setModel(model.get());
        shown = std::move(model);
        turnOfTheLoop();
        if (shown->rowCount() != state.range(0))
            state.SkipWithError("not every file listed");
    }
}

BENCHMARK(BM_FileExp_SelectFolder)
    ->Arg(10000)
    ->Arg(100000)
    ->Iterations(3)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_QDir_StandardModel)
    ->Arg(10000)
    ->Arg(100000)
    ->Iterations(3)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    folder(10000);
    folder(100000);
    return zelbench::RunAndCompare(
        argc, argv,
        {{"files_list_1e4", "BM_FileExp_SelectFolder/10000", "BM_QDir_StandardModel/10000"},
         {"files_list_1e5", "BM_FileExp_SelectFolder/100000", "BM_QDir_StandardModel/100000"}});
}
