// The record lists as a host fills and uses them, against what a competent
// Qt programmer would write for the same rows in the same run:
//
//   QT_QPA_PLATFORM=offscreen ./bench/bench_lists
//
// Widgets are created (and, where the case is about what a user sees, shown)
// outside the timed region; each timed fill ends with one turn of the event
// loop, as a host's would once it returns to its loop. Every side builds the
// same rows: three texts and a key, the key kept with the row's first cell.

#include "lists/zelCombo.h"
#include "lists/zelComboTree.h"
#include "lists/zelTreeList.h"

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
        std::array<QString, 3> c{
            randomTexts ? QStringLiteral("Layer %1").arg(d(rng), 8, 10, QLatin1Char('0'))
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
const Rows &shuffledRows(size_t n)
{
    static std::map<size_t, Rows> cache;
    auto it = cache.find(n);
    if (it == cache.end())
        it = cache.emplace(n, makeRows(n, true)).first;
    return it->second;
}

// The tree shape: row r is root r / (1 + kChildrenPerRoot) when
// r % (1 + kChildrenPerRoot) == 0, otherwise a child of that root.
bool isRoot(size_t r)
{
    return r % (1 + kChildrenPerRoot) == 0;
}
const QString &parentKey(const Rows &rows, size_t r)
{
    return rows.keys[r - r % (1 + kChildrenPerRoot)];
}

void finishFill()
{
    QCoreApplication::processEvents();
}

// One turn of a fill case: the widget is made untimed; filling it and the
// event-loop turn that shows the rows are timed; the check of what it holds
// and its destruction are untimed again.
template <typename Make, typename Fill, typename Held>
void timeFills(benchmark::State &state, size_t rows, qint64 expected, Make make, Fill fill,
               Held held)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto w = make();
        state.ResumeTiming();
        fill(*w);
        finishFill();
        state.PauseTiming();
        if (qint64(held(*w)) != expected)
            state.SkipWithError("rows missing");
        w.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(rows));
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
    timeFills(
        state, n, qint64(n), newTreeCombo,
        [&](QComboBox &c) {
            auto *model = new QStandardItemModel(0, 3, &c);
            model->setHorizontalHeaderLabels(
                {QStringLiteral("Layer"), QStringLiteral("Scale"), QStringLiteral("Group")});
            for (size_t i = 0; i < n; ++i)
                model->appendRow(standardRow(r, i));
            c.setModel(model);
        },
        [](QComboBox &c) { return c.count(); });
}

// QTreeWidget of 1,000 roots with 999 children each: each root gets its
// children with addChildren before the roots go in with one
// addTopLevelItems. The key is in Qt::UserRole of column 0.
QTreeWidgetItem *treeWidgetItem(const Rows &rows, size_t i)
{
    auto *item =
        new QTreeWidgetItem(QStringList{rows.cells[i][0], rows.cells[i][1], rows.cells[i][2]});
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
    timeFills(
        state, kTreeRows, kRoots, newTreeWidget, [&](QTreeWidget &w) { fillTreeWidget(w, r); },
        [](QTreeWidget &w) { return w.topLevelItemCount(); });
}

// QComboBox whose QTreeView drop-down shows a tree-shaped QStandardItemModel:
// each root item gets its children (three items per row, appendRow) before
// the root row goes into the model, and the model is set on the combo box
// when it is full.
void BM_QtComboTree_Fill(benchmark::State &state)
{
    const Rows &r = flatRows(kTreeRows);
    timeFills(
        state, kTreeRows, kRoots,
        [] {
            auto c = newTreeCombo();
            static_cast<QTreeView *>(c->view())->setRootIsDecorated(true);
            return c;
        },
        [&](QComboBox &c) {
            auto *model = new QStandardItemModel(0, 3, &c);
            model->setHorizontalHeaderLabels(
                {QStringLiteral("Layer"), QStringLiteral("Scale"), QStringLiteral("Group")});
            for (size_t i = 0; i < kTreeRows; i += 1 + kChildrenPerRoot) {
                QList<QStandardItem *> root = standardRow(r, i);
                for (size_t j = 1; j <= size_t(kChildrenPerRoot); ++j)
                    root[0]->appendRow(standardRow(r, i + j));
                model->appendRow(root);
            }
            c.setModel(model);
        },
        [](QComboBox &c) { return c.count(); });
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

// ---- The library ----------------------------------------------------------

// Three columns, as the Qt side's header labels.
const QString kColumns = QStringLiteral("<Layer~120\t>Scale~60\t<Group~80");

std::unique_ptr<zelCombo> newCombo()
{
    auto c = std::make_unique<zelCombo>();
    c->resize(300, 24);
    c->SetColumns(kColumns);
    return c;
}

// AddItem of every row (key, three tab-joined texts) inside one
// BeginUpdate/EndUpdate.
void fillCombo(zelCombo &c, const Rows &r, size_t n)
{
    c.BeginUpdate();
    for (size_t i = 0; i < n; ++i)
        c.AddItem(r.keys[i], r.texts[i]);
    c.EndUpdate();
}

void BM_Combo_AddItem(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const Rows &r = flatRows(n);
    timeFills(
        state, n, qint64(n), newCombo, [&](zelCombo &c) { fillCombo(c, r, n); },
        [](auto &l) { return l.Records()->Count(); });
}

// The tree shape of the Qt side: roots first in their turn, each followed by
// its children, which name it as parent. Parents stay collapsed
// (bExpandParent false), as the QTreeWidget's do.
template <typename List> void fillTree(List &l, const Rows &r)
{
    for (size_t i = 0; i < kTreeRows; ++i)
        l.AddItem(isRoot(i) ? QString() : parentKey(r, i), r.keys[i], r.texts[i], QString(), {}, {},
                  true, false);
}

std::unique_ptr<zelTreeList> newTreeList()
{
    auto t = std::make_unique<zelTreeList>();
    t->resize(600, 400);
    t->SetColumns(kColumns);
    return t;
}

// The tree list has no BeginUpdate: the rows go in one AddItem each.
void BM_TreeList_AddItem(benchmark::State &state)
{
    const Rows &r = flatRows(kTreeRows);
    timeFills(
        state, kTreeRows, qint64(kTreeRows), newTreeList, [&](zelTreeList &t) { fillTree(t, r); },
        [](auto &l) { return l.Records()->Count(); });
}

// The combo tree inside one BeginUpdate/EndUpdate.
void BM_ComboTree_AddItem(benchmark::State &state)
{
    const Rows &r = flatRows(kTreeRows);
    timeFills(
        state, kTreeRows, qint64(kTreeRows),
        [] {
            auto c = std::make_unique<zelComboTree>();
            c->resize(300, 24);
            c->SetColumns(kColumns);
            return c;
        },
        [&](zelComboTree &c) {
            c.BeginUpdate();
            fillTree(c, r);
            c.EndUpdate();
        },
        [](auto &l) { return l.Records()->Count(); });
}

// One shown, filled combo per size, kept for the by-key case and dropped
// before the application ends.
std::map<size_t, std::unique_ptr<zelCombo>> &filledCombos()
{
    static std::map<size_t, std::unique_ptr<zelCombo>> combos;
    return combos;
}

// SelectItem of keys spread over the whole list. The loop runs (untimed)
// every 64 calls, as a host's would between user actions: repainting is the
// same work at either size, and left undone it would pile up.
void BM_Combo_SelectItem(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const Rows &r = flatRows(n);
    auto &c = filledCombos()[n];
    if (!c) {
        c = newCombo();
        fillCombo(*c, r, n);
        c->show();
        QCoreApplication::processEvents();
    }
    std::mt19937 rng(11);
    std::uniform_int_distribution<size_t> d(0, n - 1);
    std::vector<size_t> picks(4096);
    for (auto &i : picks)
        i = d(rng);
    size_t k = 0;
    for (auto _ : state) {
        if (!c->SelectItem(r.keys[picks[k & 4095]]))
            state.SkipWithError("key not found");
        if ((++k & 63) == 0) {
            state.PauseTiming();
            QCoreApplication::processEvents();
            state.ResumeTiming();
        }
    }
}

// ExpandLevel 1 on a shown tree list of 1,000 roots: every root expanded,
// every child collapsed. ExpandLevel 0 collapses the roots again, untimed,
// before each turn.
void BM_TreeList_ExpandLevel(benchmark::State &state)
{
    const Rows &r = flatRows(kTreeRows);
    auto t = newTreeList();
    fillTree(*t, r);
    t->show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        t->SetExpandLevel(0);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        t->SetExpandLevel(1);
        finishFill();
    }
}

// AddItem of rows whose first texts come in random order, one by one
// outside BeginUpdate/EndUpdate, into a combo with Sorted true or false.
void addShuffled(benchmark::State &state, bool sorted)
{
    const size_t n = size_t(state.range(0));
    const Rows &r = shuffledRows(n);
    timeFills(
        state, n, qint64(n),
        [&] {
            auto c = newCombo();
            c->SetSorted(sorted);
            return c;
        },
        [&](zelCombo &c) {
            for (size_t i = 0; i < n; ++i)
                c.AddItem(r.keys[i], r.texts[i]);
        },
        [](auto &l) { return l.Records()->Count(); });
}

void BM_Combo_AddItemSorted(benchmark::State &state)
{
    addShuffled(state, true);
}

void BM_Combo_AddItemUnsorted(benchmark::State &state)
{
    addShuffled(state, false);
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

BENCHMARK(BM_Combo_AddItem)
    ->Arg(100000)
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_Combo_AddItem)
    ->Arg(1000000)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_TreeList_AddItem)
    ->Arg(kTreeRows)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_ComboTree_AddItem)
    ->Arg(kTreeRows)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_TreeList_ExpandLevel)
    ->Arg(kTreeRows)
    ->Iterations(3)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_Combo_SelectItem)->Arg(10000)->Arg(1000000)->Repetitions(3)->UseRealTime();
BENCHMARK(BM_Combo_AddItemSorted)
    ->Arg(100000)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(BM_Combo_AddItemUnsorted)
    ->Arg(100000)
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int rc = zelbench::RunAndCompare(
        argc, argv,
        {{"lists_combo_fill_1e6", "BM_Combo_AddItem/1000000", "BM_QtCombo_Fill/1000000"},
         {"lists_combo_fill_1e5", "BM_Combo_AddItem/100000", "BM_QtCombo_Fill/100000"},
         {"lists_treelist_fill_1e6", "BM_TreeList_AddItem/1000000", "BM_QtTreeWidget_Fill/1000000"},
         {"lists_combotree_fill_1e6", "BM_ComboTree_AddItem/1000000",
          "BM_QtComboTree_Fill/1000000"},
         {"lists_selectitem_1e6_vs_1e4", "BM_Combo_SelectItem/1000000",
          "BM_Combo_SelectItem/10000"},
         {"lists_expandlevel_1e6", "BM_TreeList_ExpandLevel/1000000",
          "BM_QtTreeWidget_ExpandToDepth/1000000"},
         {"lists_sorted_fill_1e5_vs_unsorted", "BM_Combo_AddItemSorted/100000",
          "BM_Combo_AddItemUnsorted/100000"}});
    filledCombos().clear();
    return rc;
}
