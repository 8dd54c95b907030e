// The legend editors as a host fills them, against what a competent Qt
// programmer would write for the same rows in the same run:
//
//   QT_QPA_PLATFORM=offscreen ./bench/bench_legend
//
// One function per case. Widgets are made and shown outside the timed
// region; each timed fill ends with one turn of the event loop, as a host's
// would once it returns to its loop.

#include "legend/zelRangeEditor.h"

#include "zelBench.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>
#include <QTableWidget>

#include <memory>
#include <vector>

namespace {

// A legend of n ranges: upper bounds 1, 2, ... with a value, a colour and a
// label each.
struct Ranges
{
    std::vector<double> uppers;
    std::vector<quint32> colours;
    std::vector<QString> labels;
};

const Ranges &ranges(size_t n)
{
    static Ranges r;
    if (r.uppers.size() != n) {
        r = {};
        for (size_t i = 0; i < n; ++i) {
            r.uppers.push_back(double(i) * 2.5);
            r.colours.push_back(quint32(i * 2654435761u) & 0xFFFFFFu);
            r.labels.push_back(QStringLiteral("Class %1").arg(i + 1));
        }
    }
    return r;
}

template <typename W> std::unique_ptr<W> shown(std::unique_ptr<W> w)
{
    w->resize(800, 600);
    w->show();
    QCoreApplication::processEvents();
    return w;
}

// One turn of a fill case: made and shown untimed, filled and one event
// loop turn timed, checked and destroyed untimed.
template <typename Make, typename Fill, typename Held>
void timeFills(benchmark::State &state, size_t rows, Make make, Fill fill, Held held)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto w = make();
        state.ResumeTiming();
        fill(*w);
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (size_t(held(*w)) != rows)
            state.SkipWithError("rows missing");
        w.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(rows));
}

// ---- Plain Qt -------------------------------------------------------------

// QTableWidget with the editor's five columns: the row count set once, then
// the cells, the bounds as two-decimal texts and the style as a background.
void BM_QtTable_Create(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const Ranges &r = ranges(n);
    timeFills(
        state, n,
        [] {
            auto t = std::make_unique<QTableWidget>(0, 5);
            t->setHorizontalHeaderLabels({QStringLiteral("Source >="), QStringLiteral("Source <"),
                                          QStringLiteral("Value"), QStringLiteral("Style"),
                                          QStringLiteral("Label")});
            t->verticalHeader()->hide();
            return shown(std::move(t));
        },
        [&](QTableWidget &t) {
            t.setRowCount(int(n));
            for (size_t i = 0; i < n; ++i) {
                const int row = int(i);
                t.setItem(row, 0,
                          new QTableWidgetItem(i == 0 ? QStringLiteral("Min")
                                                      : QString::number(r.uppers[i - 1], 'f', 2)));
                t.setItem(row, 1,
                          new QTableWidgetItem(i + 1 == n ? QStringLiteral("Max")
                                                          : QString::number(r.uppers[i], 'f', 2)));
                t.setItem(row, 2, new QTableWidgetItem(QString::number(i + 1)));
                auto *style = new QTableWidgetItem;
                const quint32 c = r.colours[i];
                style->setBackground(QColor(int(c & 0xFF), int(c >> 8 & 0xFF), int(c >> 16)));
                t.setItem(row, 3, style);
                t.setItem(row, 4, new QTableWidgetItem(r.labels[i]));
            }
        },
        [](QTableWidget &t) { return t.rowCount(); });
}

// ---- The library ----------------------------------------------------------

// The range editor filled as a host fills a classification: between
// BeginUpdate and EndUpdate, one Create per break from the lowest up (the
// first range of an empty editor is open at both ends, so the first break
// is a second Create).
void BM_RangeEditor_Create(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const Ranges &r = ranges(n);
    timeFills(
        state, n, [] { return shown(std::make_unique<zelRangeEditor>()); },
        [&](zelRangeEditor &e) {
            e.BeginUpdate();
            e.Create(r.uppers[0]);
            for (size_t i = 0; i + 1 < n; ++i)
                e.Create(r.uppers[i], double(i + 1), false, r.colours[i], r.labels[i]);
            e.EndUpdate();
        },
        [](zelRangeEditor &e) { return e.Count(); });
}

} // namespace

BENCHMARK(BM_QtTable_Create)
    ->Arg(10000)
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_RangeEditor_Create)
    ->Arg(10000)
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    return zelbench::RunAndCompare(
        argc, argv,
        {{"legend_create_1e4", "BM_RangeEditor_Create/10000", "BM_QtTable_Create/10000"}});
}
