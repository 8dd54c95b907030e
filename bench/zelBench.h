#pragma once

// Shared by the benchmark programs: runs every registered benchmark, keeps
// each one's time per iteration, and ends with one line per comparison:
//   RATIO <case> <ours divided by baseline>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zelbench {

struct Comparison
{
    std::string name; // the case, e.g. "keyed_item_by_key_1e6"
    std::string ours; // benchmark names as registered
    std::string baseline;
};

// Keeps the fastest repetition of each case: the machine may be shared, and
// other work only ever adds time.
class Collector : public benchmark::ConsoleReporter
{
public:
    // Real time in ns, by "<registered name>/<argument>", whatever the
    // min_time, iteration or repetition suffix of the run.
    std::map<std::string, double> perIteration;

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &r : runs) {
            if (r.run_type != Run::RT_Iteration || r.iterations <= 0 || r.error_occurred)
                continue;
            const std::string key = r.run_name.function_name + "/" + r.run_name.args;
            const double t = r.real_accumulated_time * 1e9 / double(r.iterations);
            const auto it = perIteration.find(key);
            if (it == perIteration.end() || t < it->second)
                perIteration[key] = t;
        }
        ConsoleReporter::ReportRuns(runs);
    }
};

// Runs the benchmarks and prints the comparisons. Repetitions of the cases
// take turns, so that a busy spell of the machine, or memory a case before
// left warm, favours neither side.
inline int RunAndCompare(int argc, char **argv, const std::vector<Comparison> &comparisons)
{
    std::vector<char *> args(argv, argv + argc);
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    args.push_back(interleave.data());
    argc = int(args.size());
    argv = args.data();
    benchmark::Initialize(&argc, argv);
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    benchmark::Shutdown();
    std::fflush(stdout);
    for (const Comparison &c : comparisons) {
        const auto a = collector.perIteration.find(c.ours);
        const auto b = collector.perIteration.find(c.baseline);
        if (a == collector.perIteration.end() || b == collector.perIteration.end() ||
            b->second <= 0)
            continue;
        std::printf("RATIO %s %.3f\n", c.name.c_str(), a->second / b->second);
    }
    return 0;
}

} // namespace zelbench
