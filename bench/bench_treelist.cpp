// The tree list's ExpandLevel on 10^6 rows (1000 farms of 999 fields each)
// against QTreeView::expandToDepth(0) on a QStandardItemModel of the same
// shape. Both trees are shown; each case starts from every row collapsed
// (untimed) and ends with the tree laid out, as the next paint needs it.
//
//   QT_QPA_PLATFORM=offscreen ./bench/bench_treelist

#include "lists/zelRecordModel.h"
#include "lists/zelTreeList.h"

#include "zelBench.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardItemModel>
#include <QTreeView>

#include <memory>

namespace {

constexpr int Farms = 1000;
constexpr int Fields = 999;

// Made once; gone before the application.
std::unique_ptr<zelTreeList> t;

zelTreeList &treeList()
{
    if (!t) {
        t = std::make_unique<zelTreeList>();
        t->SetColumns(QStringLiteral("<Name\t>Area"));
        for (int f = 0; f < Farms; ++f) {
            const QString farm = QStringLiteral("F%1").arg(f);
            t->AddItem(QString(), farm, farm + QStringLiteral("\t1"), {}, {}, {}, true, false);
            for (int p = 0; p < Fields; ++p) {
                const QString key = QStringLiteral("F%1.%2").arg(f).arg(p);
                t->AddItem(farm, key, key + QStringLiteral("\t2"), {}, {}, {}, true, false);
            }
        }
        t->resize(400, 600);
        t->show();
        QCoreApplication::processEvents();
    }
    return *t;
}

struct Plain
{
    QStandardItemModel model;
    QTreeView view;
};

std::unique_ptr<Plain> p;

Plain &plain()
{
    if (!p) {
        p = std::make_unique<Plain>();
        p->model.setColumnCount(2);
        for (int f = 0; f < Farms; ++f) {
            QList<QStandardItem *> farm{new QStandardItem(QStringLiteral("F%1").arg(f)),
                                        new QStandardItem(QStringLiteral("1"))};
            for (int c = 0; c < Fields; ++c)
                farm[0]->appendRow({new QStandardItem(QStringLiteral("F%1.%2").arg(f).arg(c)),
                                    new QStandardItem(QStringLiteral("2"))});
            p->model.appendRow(farm);
        }
        p->view.setModel(&p->model);
        p->view.setUniformRowHeights(true);
        p->view.resize(400, 600);
        p->view.show();
        QCoreApplication::processEvents();
    }
    return *p;
}

// Lays the tree out as its next paint would.
void layOut(QTreeView *view)
{
    benchmark::DoNotOptimize(view->visualRect(view->model()->index(Farms - 1, 0)));
}

void BM_TreeList_ExpandLevel(benchmark::State &state)
{
    zelTreeList &t = treeList();
    for (auto _ : state) {
        state.PauseTiming();
        t.SetExpandLevel(0);
        layOut(t.Tree());
        state.ResumeTiming();
        t.SetExpandLevel(1);
        layOut(t.Tree());
    }
}

void BM_TreeView_ExpandToDepth(benchmark::State &state)
{
    Plain &p = plain();
    for (auto _ : state) {
        state.PauseTiming();
        p.view.collapseAll();
        layOut(&p.view);
        state.ResumeTiming();
        p.view.expandToDepth(0);
        layOut(&p.view);
    }
}

BENCHMARK(BM_TreeList_ExpandLevel)->Repetitions(3)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_TreeView_ExpandToDepth)->Repetitions(3)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int rc = zelbench::RunAndCompare(
        argc, argv,
        {{"treelist_expandlevel_1e6", "BM_TreeList_ExpandLevel/", "BM_TreeView_ExpandToDepth/"}});
    t.reset();
    p.reset();
    return rc;
}
