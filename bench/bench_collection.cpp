// The keyed collection against the plain structure a host would otherwise
// write: a std::vector of members and a std::unordered_map from key to index.

#include "core/zelKeyedCollection.h"
#include "zelBench.h"

#include <QString>

#include <map>
#include <memory>
#include <random>
#include <unordered_map>
#include <vector>

namespace {

struct Member
{
    int id;
};
using Ptr = std::shared_ptr<Member>;

const std::vector<QString> &keys(size_t n)
{
    static std::map<size_t, std::vector<QString>> cache;
    auto &k = cache[n];
    if (k.empty()) {
        k.reserve(n);
        for (size_t i = 0; i < n; ++i)
            k.push_back(QStringLiteral("Parcel-%1").arg(i));
    }
    return k;
}

// The members are the host's objects, made once and shared by both
// structures, so that both are measured on the same memory.
const std::vector<Ptr> &members(size_t n)
{
    static std::map<size_t, std::vector<Ptr>> cache;
    auto &m = cache[n];
    if (m.empty()) {
        m.reserve(n);
        for (size_t i = 0; i < n; ++i)
            m.push_back(std::make_shared<Member>(Member{int(i)}));
    }
    return m;
}

std::vector<size_t> randomIndices(size_t n, size_t count)
{
    std::mt19937 rng(7);
    std::uniform_int_distribution<size_t> d(0, n - 1);
    std::vector<size_t> v(count);
    for (auto &i : v)
        i = d(rng);
    return v;
}

struct Baseline
{
    std::vector<Ptr> items;
    std::unordered_map<QString, size_t> index;

    void add(Ptr p, const QString &key)
    {
        index.emplace(key, items.size());
        items.push_back(std::move(p));
    }
    Ptr byKey(const QString &key) const
    {
        const auto it = index.find(key);
        return it == index.end() ? Ptr() : items[it->second];
    }
    bool remove(const QString &key)
    {
        const auto it = index.find(key);
        if (it == index.end())
            return false;
        const size_t at = it->second;
        index.erase(it);
        items.erase(items.begin() + long(at));
        for (auto &e : index) // every later member moves up one place
            if (e.second > at)
                --e.second;
        return true;
    }
};

void fill(zel::zelKeyedCollection<Member> &c, size_t n)
{
    const auto &k = keys(n);
    const auto &m = members(n);
    for (size_t i = 0; i < n; ++i)
        c.Add(m[i], k[i]);
}

void fill(Baseline &b, size_t n)
{
    const auto &k = keys(n);
    const auto &m = members(n);
    b.items.reserve(n);
    b.index.reserve(n);
    for (size_t i = 0; i < n; ++i)
        b.add(m[i], k[i]);
}

void Ours_Add(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    keys(n);
    members(n);
    for (auto _ : state) {
        zel::zelKeyedCollection<Member> c;
        fill(c, n);
        benchmark::DoNotOptimize(c.Count());
    }
}

void Base_Add(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    keys(n);
    members(n);
    for (auto _ : state) {
        Baseline b;
        fill(b, n);
        benchmark::DoNotOptimize(b.items.size());
    }
}

constexpr size_t Lookups = 100000;

void Ours_ItemByKey(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    zel::zelKeyedCollection<Member> c;
    fill(c, n);
    const auto idx = randomIndices(n, Lookups);
    const auto &k = keys(n);
    for (auto _ : state)
        for (size_t i : idx)
            benchmark::DoNotOptimize(c.ItemByKey(k[i]));
}

void Base_ItemByKey(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    Baseline b;
    fill(b, n);
    const auto idx = randomIndices(n, Lookups);
    const auto &k = keys(n);
    for (auto _ : state)
        for (size_t i : idx)
            benchmark::DoNotOptimize(b.byKey(k[i]));
}

void Ours_ItemByPosition(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    zel::zelKeyedCollection<Member> c;
    fill(c, n);
    // A collection that has seen removals is no longer uniform: measure that.
    c.RemoveAt(qint32(n / 2));
    c.Add(std::make_shared<Member>(Member{-1}), QString(), qint32(n / 3));
    const auto idx = randomIndices(n, Lookups);
    for (auto _ : state)
        for (size_t i : idx)
            benchmark::DoNotOptimize(c.ItemAt(qint32(i) + 1));
}

void Base_ItemByPosition(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    Baseline b;
    fill(b, n);
    const auto idx = randomIndices(n, Lookups);
    for (auto _ : state)
        for (size_t i : idx)
            benchmark::DoNotOptimize(Ptr(b.items[i]));
}

constexpr size_t Removals = 200;

void Ours_Remove(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const auto idx = randomIndices(n, Removals);
    const auto &k = keys(n);
    for (auto _ : state) {
        state.PauseTiming();
        auto c = std::make_unique<zel::zelKeyedCollection<Member>>();
        fill(*c, n);
        state.ResumeTiming();
        for (size_t i : idx)
            benchmark::DoNotOptimize(c->RemoveKey(k[i]));
        state.PauseTiming();
        c.reset();
        state.ResumeTiming();
    }
}

void Base_Remove(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    const auto idx = randomIndices(n, Removals);
    const auto &k = keys(n);
    for (auto _ : state) {
        state.PauseTiming();
        auto b = std::make_unique<Baseline>();
        fill(*b, n);
        state.ResumeTiming();
        for (size_t i : idx)
            benchmark::DoNotOptimize(b->remove(k[i]));
        state.PauseTiming();
        b.reset();
        state.ResumeTiming();
    }
}

void Ours_Enumerate(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    zel::zelKeyedCollection<Member> c;
    fill(c, n);
    for (auto _ : state) {
        long long sum = 0;
        for (const auto &m : c)
            sum += m->id;
        benchmark::DoNotOptimize(sum);
    }
}

void Base_Enumerate(benchmark::State &state)
{
    const size_t n = size_t(state.range(0));
    Baseline b;
    fill(b, n);
    for (auto _ : state) {
        long long sum = 0;
        for (const auto &m : b.items)
            sum += m->id;
        benchmark::DoNotOptimize(sum);
    }
}

const std::vector<long> Sizes{10000, 100000, 1000000};

} // namespace

int main(int argc, char **argv)
{
    std::vector<zelbench::Comparison> comparisons;
    auto reg = [&](const char *what, void (*ours)(benchmark::State &),
                   void (*base)(benchmark::State &), double minTime, bool manyIterationsOk) {
        for (long n : Sizes) {
            const std::string suffix = n == 10000 ? "1e4" : n == 100000 ? "1e5" : "1e6";
            const std::string o = std::string("ours/") + what + "/" + suffix;
            const std::string b = std::string("baseline/") + what + "/" + suffix;
            auto *bo = benchmark::RegisterBenchmark(o.c_str(), ours)
                           ->Arg(n)
                           ->Unit(benchmark::kMillisecond);
            auto *bb = benchmark::RegisterBenchmark(b.c_str(), base)
                           ->Arg(n)
                           ->Unit(benchmark::kMillisecond);
            if (manyIterationsOk) {
                bo->MinTime(minTime);
                bb->MinTime(minTime);
            } else {
                bo->Iterations(n >= 1000000 ? 1 : 5);
                bb->Iterations(n >= 1000000 ? 1 : 5);
            }
            comparisons.push_back({std::string("keyed_") + what + "_" + suffix,
                                   o + "/" + std::to_string(n), b + "/" + std::to_string(n)});
        }
    };
    reg("add", Ours_Add, Base_Add, 0.3, true);
    reg("item_by_key", Ours_ItemByKey, Base_ItemByKey, 0.3, true);
    reg("item_by_position", Ours_ItemByPosition, Base_ItemByPosition, 0.3, true);
    reg("remove_by_key", Ours_Remove, Base_Remove, 0.1, false);
    reg("enumerate", Ours_Enumerate, Base_Enumerate, 0.3, true);
    return zelbench::RunAndCompare(argc, argv, comparisons);
}
