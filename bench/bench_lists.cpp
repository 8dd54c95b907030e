// The record lists as a host fills and uses them, against what a competent
// Qt programmer would write for the same rows in the same run:
//
//   QT_QPA_PLATFORM=offscreen ./bench/bench_lists
//
// Widgets are created (and, where the case is about what a user sees, shown)
// outside the timed region; each timed fill ends with one turn of the event
// loop, as a host's would once it returns to its loop. Every side builds the
// same rows: three texts and a key, the key kept with the row's first cell.

#include "zelBench.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QStandardItemModel>
#include <QTreeView>
#include <QTreeWidget>

#include <array>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int kRoots = 1000;
constexpr int kChildrenPerRoot = 999;
constexpr size_t kTreeRows = size_t(kRoots) * (1 + kChildrenPerRoot);

struct Rows
{
    std::vector<QString> keys;
    std::vector<QString> texts;                // tab-joined, for the record lists
    std::vector<std::array<QString, 3>> cells; // the same, cell by cell
};

Rows makeRows(size_t n, bool randomTexts)
{
    Rows r;
    r.keys.reserve(n);
    r.texts.reserve(n);
    r.cells.reserve(n);
    std::mt19937 rng(7);
    std::uniform_int_distribution<int> d(0, 99999999);
    for (size_t i = 0; i < n; ++i) {
        std::array<QString, 3> c{randomTexts ? QStringLiteral("Layer %1").arg(d(rng), 8, 10,
                                                                               QLatin1Char('0'))
                                             : QStringLiteral("Layer %1").arg(i),
                                 QString::number(double(i % 9973) * 1.25, 'f', 2),
                                 QStringLiteral("Group %1").arg(i % 17)};
        r.keys.push_back(QStringLiteral("K%1").arg(i));
        r.texts.push_back(c[0] + QLatin1Char('\t') + c[1] + QLatin1Char('\t') + c[2]);
        r.cells.push_back(std::move(c));
    }
    return r;
}

// Flat rows in key order.
const Rows &flatRows(size_t n)
{
    static std::map<size_t, Rows> cache;
    auto it = cache.find(n);
    if (it == cache.end())
        it = cache.emplace(n, makeRows(n, false)).first;
    return it->second;
}

// Rows whose first texts come in random order, for sorted insertion.
[[maybe_unused]] const Rows &shuffledRows(size_t n)
{
    static std::map<size_t, Rows> cache;
    auto it = cache.find(n);
    if (it == cache.end())
        it = cache.emplace(n, makeRows(n, true)).first;
    return it->second;
}

// The tree shape: row r is root r / (1 + kChildrenPerRoot) when
// r % (1 + kChildrenPerRoot) == 0, otherwise a child of that root.
[[maybe_unused]] bool isRoot(size_t r)
{
    return r % (1 + kChildrenPerRoot) == 0;
}
[[maybe_unused]] const QString &parentKey(const Rows &rows, size_t r)
{
    return rows.keys[r - r % (1 + kChildrenPerRoot)];
}

void finishFill()
{
    QCoreApplication::processEvents();
}

// ---- Plain Qt -------------------------------------------------------------

// One row of a QStandardItemModel: the three texts, the key in Qt::UserRole of
// the first cell.
QList<QStandardItem *> standardRow(const Rows &rows, size_t i)
{
    auto *first = new QStandardItem(rows.cells[i][0]);
    first->setData(rows.keys[i], Qt::UserRole);
    return {first, new QStandardItem(rows.cells[i][1]), new QStandardItem(rows.cells[i][2])};
}

std::unique_ptr<QComboBox> newTreeCombo()
{
    auto c = std::make_unique<QComboBox>();
    c->resize(300, 24);
    auto *view = new QTreeView;
    view->setRootIsDecorated(false);
    c->setView(view);
    return c;
}

// QComboBox with a QTreeView drop-down: the model is filled row by row with
// appendRow (three items per row) before it is set on the combo box, so no
// view hears of the single rows.
void BM_QtCombo_Fill(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const Rows &r = flatRows(n);
    for (auto _ : state) {
        state.PauseTiming();
        auto c = newTreeCombo();
        state.ResumeTiming();
        auto *model = new QStandardItemModel(0, 3, c.get());
        model->setHorizontalHeaderLabels(
            {QStringLiteral("Layer"), QStringLiteral("Scale"), QStringLiteral("Group")});
        for (size_t i = 0; i < n; ++i)
            model->appendRow(standardRow(r, i));
        c->setModel(model);
        finishFill();
        state.PauseTiming();
        if (c->count() != int(n))
            state.SkipWithError("rows missing");
        c.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(n));
}

// QTreeWidget of 1,000 roots with 999 children each: each root gets its
// children with addChildren before the roots go in with one
// addTopLevelItems. The key is in Qt::UserRole of column 0.
QTreeWidgetItem *treeWidgetItem(const Rows &rows, size_t i)
{
    auto *item = new QTreeWidgetItem(
        QStringList{rows.cells[i][0], rows.cells[i][1], rows.cells[i][2]});
    item->setData(0, Qt::UserRole, rows.keys[i]);
    return item;
}

void fillTreeWidget(QTreeWidget &w, const Rows &r)
{
    QList<QTreeWidgetItem *> roots;
    roots.reserve(kRoots);
    QList<QTreeWidgetItem *> children;
    for (size_t i = 0; i < kTreeRows; i += 1 + kChildrenPerRoot) {
        QTreeWidgetItem *root = treeWidgetItem(r, i);
        children.clear();
        children.reserve(kChildrenPerRoot);
        for (size_t j = 1; j <= size_t(kChildrenPerRoot); ++j)
            children.append(treeWidgetItem(r, i + j));
        root->addChildren(children);
        roots.append(root);
    }
    w.addTopLevelItems(roots);
}

std::unique_ptr<QTreeWidget> newTreeWidget()
{
    auto w = std::make_unique<QTreeWidget>();
    w->resize(600, 400);
    w->setColumnCount(3);
    w->setHeaderLabels({QStringLiteral("Layer"), QStringLiteral("Scale"), QStringLiteral("Group")});
    return w;
}

void BM_QtTreeWidget_Fill(benchmark::State &state)
{
    const Rows &r = flatRows(kTreeRows);
    for (auto _ : state) {
        state.PauseTiming();
        auto w = newTreeWidget();
        state.ResumeTiming();
        fillTreeWidget(*w, r);
        finishFill();
        state.PauseTiming();
        if (w->topLevelItemCount() != kRoots)
            state.SkipWithError("roots missing");
        w.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(kTreeRows));
}

// QComboBox whose QTreeView drop-down shows a tree-shaped QStandardItemModel:
// each root item gets its children (three items per row, appendRow) before
// the root row goes into the model, and the model is set on the combo box
// when it is full.
void BM_QtComboTree_Fill(benchmark::State &state)
{
    const Rows &r = flatRows(kTreeRows);
    for (auto _ : state) {
        state.PauseTiming();
        auto c = newTreeCombo();
        static_cast<QTreeView *>(c->view())->setRootIsDecorated(true);
        state.ResumeTiming();
        auto *model = new QStandardItemModel(0, 3, c.get());
        model->setHorizontalHeaderLabels(
            {QStringLiteral("Layer"), QStringLiteral("Scale"), QStringLiteral("Group")});
        for (size_t i = 0; i < kTreeRows; i += 1 + kChildrenPerRoot) {
            QList<QStandardItem *> root = standardRow(r, i);
            for (size_t j = 1; j <= size_t(kChildrenPerRoot); ++j)
                root[0]->appendRow(standardRow(r, i + j));
            model->appendRow(root);
        }
        c->setModel(model);
        finishFill();
        state.PauseTiming();
        if (c->count() != kRoots)
            state.SkipWithError("roots missing");
        c.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(kTreeRows));
}

// Every root of a shown QTreeWidget expanded with expandToDepth(0); the
// widget is collapsed (collapseAll) and laid out again untimed before each
// turn.
void BM_QtTreeWidget_ExpandToDepth(benchmark::State &state)
{
    const Rows &r = flatRows(kTreeRows);
    auto w = newTreeWidget();
    fillTreeWidget(*w, r);
    w->show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        w->collapseAll();
        QCoreApplication::processEvents();
        state.ResumeTiming();
        w->expandToDepth(0);
        finishFill();
    }
    if (!w->topLevelItem(kRoots - 1)->isExpanded() ||
        w->topLevelItem(kRoots - 1)->child(0)->isExpanded())
        state.SkipWithError("not expanded to depth 0");
}

} // namespace

// Each fill runs a few times; the fastest repetition counts (see Collector).
BENCHMARK(BM_QtCombo_Fill)
    ->Arg(100000)
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_QtCombo_Fill)
    ->Arg(1000000)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_QtTreeWidget_Fill)
    ->Arg(kTreeRows)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_QtComboTree_Fill)
    ->Arg(kTreeRows)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_QtTreeWidget_ExpandToDepth)
    ->Arg(kTreeRows)
    ->Iterations(3)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    return zelbench::RunAndCompare(argc, argv, {});
}
