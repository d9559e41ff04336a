// The ranked search on catalogues of four sizes, against the naive form of itself and two other
// fuzzy finders, as Google Benchmark runs with a table of all figures and goals at the end.
//
//     pello_bench_search [--quick] [--items=N ...] [Google Benchmark's options]

#include "search/BenchSearch.h"
#include "search/Report.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using pello::bench::Effort;
using pello::bench::Measurement;

/// Fewer queries and repetitions, for a look in seconds.
constexpr Effort kQuick = {.queries = 40,
                           .runs = 7,
                           .builds = 3,
                           .naiveSample = 6,
                           .peerSample = 6,
                           .peerRuns = 1,
                           .learned = 300};

void keystrokes(benchmark::State& state, std::size_t items, const Effort& effort,
                std::vector<Measurement>& measurements) {
    for (auto iteration : state) {
        (void)iteration;
        measurements.push_back(measure(items, effort));
        state.SetIterationTime(measurements.back().keystrokes.mean());
    }
    const Measurement& result = measurements.back();
    state.counters["median_us"] = result.keystrokes.quantile(0.5) * 1e6;
    state.counters["p99_us"] = result.keystrokes.quantile(0.99) * 1e6;
    state.counters["ns_per_candidate"] =
        result.keystrokes.mean() * 1e9 / static_cast<double>(items);
}

/// Takes out the options that are this program's own.
std::vector<std::size_t> readOptions(int& argc, char** argv, Effort& effort) {
    std::vector<std::size_t> sizes;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--quick") {
            effort = kQuick;
        } else if (argument.starts_with("--items=")) {
            sizes.push_back(std::strtoul(argument.c_str() + 8, nullptr, 10));
        } else {
            argv[kept++] = argv[i];
        }
    }
    argc = kept;
    if (sizes.empty()) {
        sizes = {1000, 10000, 100000, 1000000};
    }
    return sizes;
}

} // namespace

int main(int argc, char** argv) {
    Effort effort;
    const auto sizes = readOptions(argc, argv, effort);
    std::vector<Measurement> measurements;
    for (const std::size_t items : sizes) {
        benchmark::RegisterBenchmark( // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): it owns it
            ("keystrokes/" + std::to_string(items)).c_str(),
            [&, items](benchmark::State& state) { keystrokes(state, items, effort, measurements); })
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    benchmark::RunSpecifiedBenchmarks();
    pello::bench::print(measurements);
    return EXIT_SUCCESS;
}
