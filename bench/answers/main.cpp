// What the items made of the query cost on each keystroke, by maker, beside the search of the same
// keystroke among 10,000 items. Typical queries, typed letter by letter.
//
//     pello_bench_answers [Google Benchmark's options]

#include "Stopwatch.h"
#include "answers/Calculator.h"
#include "answers/Conversions.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/memory/MemoryWorkspace.h"
#include "search/SearchCorpus.h"
#include "search/SearchEngine.h"
#include "sources/QuickActions.h"
#include "sources/TypedAddress.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace pello;
using bench::Times;

constexpr std::size_t kItems = 10'000;
constexpr std::size_t kRuns = 5;
constexpr double kMicro = 1e6;

/// What people ask a launcher, one in three for an application.
constexpr auto kQueries = std::to_array<std::string_view>({"12*(3+4)",
                                                           "sqrt(2)*100",
                                                           "1024/7",
                                                           "2^32-1",
                                                           "0.1+0.2",
                                                           "19.99*1.2",
                                                           "(1+2)*(3+4)/5",
                                                           "5 km",
                                                           "5 km to mi",
                                                           "72 f in c",
                                                           "1,5 l in gal",
                                                           "3 weeks in days",
                                                           "12 fl oz",
                                                           "100 mph to km/h",
                                                           "10 kg to lb",
                                                           "1.234,5 m in ft",
                                                           "80 gb in gib",
                                                           "time in tokyo",
                                                           "3pm london in new york",
                                                           "15:00 utc to pst",
                                                           "noon berlin in la",
                                                           "what time is it in new york",
                                                           "9:30 tokyo",
                                                           "days until christmas",
                                                           "weeks until easter",
                                                           "today + 3 weeks",
                                                           "15 march + 90 days",
                                                           "next friday",
                                                           "days between 1 may and 4 july",
                                                           "in 10 days",
                                                           "25 december 2030",
                                                           "g weather tomorrow",
                                                           "w ada lovelace",
                                                           "gh fuzzy matcher",
                                                           "map berlin",
                                                           "example.org/path",
                                                           "https://a.example/b?c=d",
                                                           "firefox",
                                                           "terminal",
                                                           "visual studio code",
                                                           "system settings",
                                                           "text editor",
                                                           "calculator",
                                                           "spotify",
                                                           "thunderbird",
                                                           "files",
                                                           "how to boil an egg",
                                                           "best pizza in town",
                                                           "hello-world",
                                                           "screenshot"});

/// Everything that makes items, ready.
struct Makers {
    MemoryMainLoop loop{Date{817'000'000}};
    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings{defaults, loginItem};
    UsageStore usage{defaults, loop};
    MemoryWorkspace workspace;
    MemoryPasteboard pasteboard;
    QuickActions actions{loop, workspace, pasteboard};
    Surroundings surroundings{.locale = "en_US", .timeZone = "Europe/Berlin"};
    Calculator calculator{surroundings.locale};
    UnitConversion units{surroundings.locale};
    TimeZoneConversion times{surroundings};
    DateArithmetic dates{surroundings};
    Conversions conversions{surroundings};
    Catalogue catalogue = bench::SearchCorpus::catalogue(kItems);

    Makers() {
        actions.prepare(surroundings);
        loop.settle();
    }
};

/// One line of the table.
struct Subject {
    std::string_view name;
    std::function<void(const std::string& query)> call;
    Times first;
    Times least;
};

std::vector<Subject> subjects(Makers& m) {
    using benchmark::DoNotOptimize;
    return {
        {"bang", [&](const auto& q) { DoNotOptimize(Bang::match(q, m.settings.bangs.get())); }},
        {"calculator", [&](const auto& q) { DoNotOptimize(m.calculator.evaluate(q)); }},
        {"all conversions",
         [&](const auto& q) { DoNotOptimize(m.conversions.results(q, m.loop.now())); }},
        {"  units", [&](const auto& q) { DoNotOptimize(m.units.convert(q)); }},
        {"  times", [&](const auto& q) { DoNotOptimize(m.times.convert(q, m.loop.now())); }},
        {"  dates: countdowns",
         [&](const auto& q) { DoNotOptimize(m.dates.countdown(q, m.loop.now())); }},
        {"  dates: offsets",
         [&](const auto& q) { DoNotOptimize(m.dates.offset(q, m.loop.now())); }},
        {"typed address", [](const auto& q) { DoNotOptimize(detectURL(q)); }},
        {"web search",
         [](const auto& q) { DoNotOptimize(searchAddress(WebSearchEngine::duckDuckGo, q)); }},
        {"all items", [&](const auto& q) { DoNotOptimize(m.actions.items(q, m.settings)); }},
        {"search among 10,000",
         [&](const auto& q) {
             DoNotOptimize(SearchEngine::results(q, m.catalogue, {}, m.usage, 8));
         }},
    };
}

void measure(Subject& subject, const std::vector<std::string>& keystrokes) {
    for (const std::string& query : keystrokes) {
        const auto call = [&] { subject.call(query); };
        subject.first.seconds.push_back(bench::leastTime(1, call));
        subject.least.seconds.push_back(bench::leastTime(kRuns, call));
    }
}

void print(const std::vector<Subject>& subjects) {
    const double search = subjects.back().least.quantile(0.5);
    std::printf("\n%-22s%12s%12s%12s%16s%18s\n", "us a keystroke", "median", "p99", "slowest",
                "slowest, first", "share of search");
    for (const Subject& subject : subjects) {
        const double median = subject.least.quantile(0.5);
        std::printf("%-22s%12.2f%12.2f%12.2f%16.2f%17.0f%%\n", subject.name.data(), median * kMicro,
                    subject.least.quantile(0.99) * kMicro, subject.least.quantile(1) * kMicro,
                    subject.first.quantile(1) * kMicro, median / search * 100);
    }
    const double all = subjects[subjects.size() - 2].least.quantile(0.5) * kMicro;
    std::printf("all items, median <= 60 us: %s\n", all <= 60 ? "met" : "MISSED");
}

} // namespace

int main(int argc, char** argv) {
    Makers makers;
    auto all = subjects(makers);
    const auto keystrokes = bench::SearchCorpus::keystrokes({kQueries.begin(), kQueries.end()});
    for (Subject& subject : all) {
        const auto run = [&](benchmark::State& state) {
            for (auto iteration : state) {
                (void)iteration;
                measure(subject, keystrokes);
                state.SetIterationTime(subject.least.mean());
            }
        };
        benchmark::RegisterBenchmark(std::string(subject.name).c_str(), run)
            ->UseManualTime()
            ->Iterations(1)
            ->Unit(benchmark::kMicrosecond);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    benchmark::RunSpecifiedBenchmarks();
    print(all);
    return EXIT_SUCCESS;
}
