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

class Collector : public benchmark::ConsoleReporter
{
public:
    // Real time in ns, by "<registered name>/<argument>", whatever the
    // min_time or iteration suffix of the run.
    std::map<std::string, double> perIteration;

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &r : runs)
            if (r.iterations > 0)
                perIteration[r.run_name.function_name + "/" + r.run_name.args] =
                    r.real_accumulated_time * 1e9 / double(r.iterations);
        ConsoleReporter::ReportRuns(runs);
    }
};

inline int RunAndCompare(int argc, char **argv, const std::vector<Comparison> &comparisons)
{
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
