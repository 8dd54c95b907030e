// The grid list as a host fills and uses it, against a plain QTableWidget
// filled with the same rows in the same run, and its by-key methods on a
// list of 10^4 rows against one of 10^6 rows.
//
//   QT_QPA_PLATFORM=offscreen ./bench/bench_gridlist
//
// Both grids are shown and get one turn of the event loop after filling,
// as a host's grid would once the host returns to its loop. The by-key cases
// let the loop run (untimed) every 64 calls, as a host's loop would between
// user actions: repainting is the same work at either list size, and left
// undone it would pile up.

#include "grid/zelGridList.h"

#include "zelBench.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>
#include <QTableWidget>

#include <cstdio>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

struct Rows
{
    std::vector<QString> keys;
    std::vector<QString> texts;                // tab-joined, for the grid list
    std::vector<std::array<QString, 3>> cells; // the same, cell by cell
};

const Rows &rows(size_t n)
{
    static std::map<size_t, Rows> cache;
    Rows &r = cache[n];
    if (r.keys.empty()) {
        r.keys.reserve(n);
        r.texts.reserve(n);
        r.cells.reserve(n);
        for (size_t i = 0; i < n; ++i) {
            std::array<QString, 3> c{QStringLiteral("Parcel %1").arg(i),
                                     QString::number(double(i % 9973) * 1.25, 'f', 2),
                                     QStringLiteral("Zone %1").arg(i % 17)};
            r.keys.push_back(QStringLiteral("P%1").arg(i));
            r.texts.push_back(c[0] + QLatin1Char('\t') + c[1] + QLatin1Char('\t') + c[2]);
            r.cells.push_back(std::move(c));
        }
    }
    return r;
}

std::unique_ptr<zelGridList> newGridList()
{
    auto g = std::make_unique<zelGridList>();
    g->resize(600, 400);
    g->AddColumn(QStringLiteral("Parcel"));
    g->AddColumnEx(QStringLiteral("Area"), ZEL_ColumnAlignRight, 5, 2, 1200);
    g->AddColumnEx(QStringLiteral("Zone"), ZEL_ColumnAlignLeft, 8, 0, 1500);
    g->show();
    QCoreApplication::processEvents();
    return g;
}

void BM_GridList_AddItem(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const Rows &r = rows(n);
    for (auto _ : state) {
        state.PauseTiming();
        auto g = newGridList();
        state.ResumeTiming();
        for (size_t i = 0; i < n; ++i)
            g->AddItem(r.texts[i], r.keys[i]);
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (g->Items()->Count() != qint32(n))
            state.SkipWithError("rows missing");
        g.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(n));
}

void BM_TableWidget_Fill(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const Rows &r = rows(n);
    for (auto _ : state) {
        state.PauseTiming();
        auto w = std::make_unique<QTableWidget>();
        w->resize(600, 400);
        w->setColumnCount(3);
        w->setHorizontalHeaderLabels(
            {QStringLiteral("Parcel"), QStringLiteral("Area"), QStringLiteral("Zone")});
        w->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        w->show();
        QCoreApplication::processEvents();
        state.ResumeTiming();
        w->setRowCount(int(n));
        for (size_t i = 0; i < n; ++i)
            for (int c = 0; c < 3; ++c)
                w->setItem(int(i), c, new QTableWidgetItem(r.cells[i][size_t(c)]));
        QCoreApplication::processEvents();
        state.PauseTiming();
        w.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(n));
}

// One filled list per size, kept for the by-key cases and dropped before
// the application ends.
std::map<size_t, std::unique_ptr<zelGridList>> &filledLists()
{
    static std::map<size_t, std::unique_ptr<zelGridList>> lists;
    return lists;
}

zelGridList &filledList(size_t n)
{
    auto &g = filledLists()[n];
    if (!g) {
        g = newGridList();
        const Rows &r = rows(n);
        for (size_t i = 0; i < n; ++i)
            g->AddItem(r.texts[i], r.keys[i]);
        QCoreApplication::processEvents();
    }
    return *g;
}

std::vector<size_t> randomIndices(size_t n, size_t count)
{
    std::mt19937 rng(11);
    std::uniform_int_distribution<size_t> d(0, n - 1);
    std::vector<size_t> v(count);
    for (auto &i : v)
        i = d(rng);
    return v;
}

void turnOfTheLoop(benchmark::State &state)
{
    state.PauseTiming();
    QCoreApplication::processEvents();
    state.ResumeTiming();
}

void BM_GridList_SelectItem(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    zelGridList &g = filledList(n);
    const Rows &r = rows(n);
    const auto picks = randomIndices(n, 4096);
    size_t k = 0;
    for (auto _ : state) {
        if (!g.SelectItem(r.keys[picks[k & 4095]]))
            state.SkipWithError("key not found");
        if ((++k & 63) == 0)
            turnOfTheLoop(state);
    }
}

void BM_GridList_RemoveItemByKey(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    zelGridList &g = filledList(n);
    const Rows &r = rows(n);
    const auto picks = randomIndices(n, 4096);
    size_t k = 0;
    for (auto _ : state) {
        const size_t i = picks[k & 4095];
        if (!g.RemoveItemByKey(r.keys[i]))
            state.SkipWithError("key not found");
        // The row goes back, so that the list keeps its size.
        state.PauseTiming();
        g.AddItem(r.texts[i], r.keys[i]);
        if ((++k & 63) == 0)
            QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    QCoreApplication::processEvents();
}

// Each fill runs a few times; the fastest repetition counts (see Collector).
BENCHMARK(BM_GridList_AddItem)
    ->Arg(100000)
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_TableWidget_Fill)
    ->Arg(100000)
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_GridList_AddItem)
    ->Arg(1000000)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_TableWidget_Fill)
    ->Arg(1000000)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_GridList_SelectItem)->Arg(10000)->Arg(1000000)->Repetitions(3)->UseRealTime();
BENCHMARK(BM_GridList_RemoveItemByKey)->Arg(10000)->Arg(1000000)->Repetitions(3)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int rc = zelbench::RunAndCompare(
        argc, argv,
        {{"gridlist_additem_1e6", "BM_GridList_AddItem/1000000", "BM_TableWidget_Fill/1000000"},
         {"gridlist_additem_1e5", "BM_GridList_AddItem/100000", "BM_TableWidget_Fill/100000"},
         {"gridlist_selectitem_1e6_vs_1e4", "BM_GridList_SelectItem/1000000",
          "BM_GridList_SelectItem/10000"},
         {"gridlist_removebykey_1e6_vs_1e4", "BM_GridList_RemoveItemByKey/1000000",
          "BM_GridList_RemoveItemByKey/10000"}});
    filledLists().clear();
    return rc;
}
