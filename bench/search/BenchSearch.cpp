#include "search/BenchSearch.h"

#include "base/Text.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "search/NaiveSearch.h"
#include "search/Peer.h"
#include "search/SearchCorpus.h"
#include "search/SearchEngine.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace pello::bench {
namespace {

using testing::NaiveSearch::Shortcut;
namespace Corpus = SearchCorpus;

constexpr std::ptrdiff_t kLimit = 8;
constexpr std::size_t kNaiveItems = 10000;

/// A catalogue, what was learned about it, and what is typed.
struct Desk {
    Desk(std::size_t items, const Effort& effort) {
        const auto sources = Corpus::sources(items);
        catalogue = Corpus::catalogue(items);
        keystrokes = Corpus::keystrokes(Corpus::queries(sources, effort.queries));
        Corpus::use(usage, loop, sources, effort.learned);
    }

    double searchTime(const std::string& query, std::size_t runs) const {
        return leastTime(runs, [&] {
            benchmark::DoNotOptimize(SearchEngine::results(query, catalogue, {}, usage, kLimit));
        });
    }

    double naiveTime(const std::string& query, Shortcut shortcut) const {
        return leastTime(1, [&] {
            benchmark::DoNotOptimize(
                testing::NaiveSearch::results(query, catalogue, {}, usage, kLimit, shortcut));
        });
    }

    /// Keystrokes at even distances.
    [[nodiscard]] std::vector<std::string> sample(std::size_t count) const {
        std::vector<std::string> result;
        const std::size_t step = std::max<std::size_t>(keystrokes.size() / count, 1);
        for (std::size_t i = step / 2; i < keystrokes.size() && result.size() < count; i += step) {
            result.push_back(keystrokes[i]);
        }
        return result;
    }

    Catalogue catalogue;
    std::vector<std::string> keystrokes;
    MemoryUserDefaults defaults;
    MemoryMainLoop loop{Date{700000000}};
    UsageStore usage{defaults, loop};
};

void timeKeystrokes(const Desk& desk, const Effort& effort, Measurement& result) {
    for (const std::string& query : desk.keystrokes) {
        const double time = desk.searchTime(query, effort.runs);
        result.keystrokes.seconds.push_back(time);
        if (text::characterCount(query) == 1) {
            result.firstKeystrokes.seconds.push_back(time);
        }
        SearchWork work;
        benchmark::DoNotOptimize(
            SearchEngine::results(query, desk.catalogue, {}, desk.usage, kLimit, &work));
        result.work.textsTried += work.textsTried;
        result.work.tablesFilled += work.tablesFilled;
        result.work.titleComparisons += work.titleComparisons;
    }
}

void timeBuilding(const Effort& effort, Measurement& result) {
    const auto build = [](const std::vector<std::vector<LaunchItem>>& sources) {
        auto copies = sources;
        Catalogue lists;
        const double begin = threadTime();
        for (auto& items : copies) {
            lists.push_back(PreparedList::make(std::move(items)));
        }
        return threadTime() - begin;
    };
    const auto least = [&](const std::vector<std::vector<LaunchItem>>& sources) {
        double time = build(sources);
        for (std::size_t i = 1; i < effort.builds; ++i) {
            time = std::min(time, build(sources));
        }
        return time;
    };
    result.buildPerItem = least(Corpus::sources(result.items)) / static_cast<double>(result.items);
    auto applications = Corpus::sources(2500).front();
    applications.resize(1000);
    result.rebuild = least({applications});
}

void timeNaive(const Desk& desk, const Effort& effort, Measurement& result) {
    const Desk sampled(std::min(result.items, kNaiveItems), effort);
    const double scale = static_cast<double>(result.items) /
                         static_cast<double>(std::min(result.items, kNaiveItems));
    Times engine;
    Times naive;
    Times ascii;
    for (const std::string& query : desk.sample(effort.naiveSample)) {
        engine.seconds.push_back(desk.searchTime(query, effort.runs));
        naive.seconds.push_back(sampled.naiveTime(query, Shortcut::none) * scale);
        ascii.seconds.push_back(sampled.naiveTime(query, Shortcut::ascii) * scale);
    }
    result.sampledByEngine = engine.mean();
    result.naive = naive.mean();
    result.naiveAscii = ascii.mean();
}

std::optional<double> peerTime(Peer peer, const std::vector<std::string>& queries,
                               const std::filesystem::path& file, std::size_t runs) {
    if (!peer.isInstalled()) {
        return std::nullopt;
    }
    Times times;
    for (const std::string& query : queries) {
        times.seconds.push_back(peer.time(query, file, runs).value_or(0));
    }
    return times.mean();
}

void timePeers(const Desk& desk, const Effort& effort, Measurement& result) {
    const auto file = std::filesystem::temp_directory_path() /
                      ("pello-bench-" + std::to_string(getpid()) + ".txt");
    writeTexts(desk.catalogue, file);
    const auto queries = desk.sample(effort.peerSample);
    Times engine;
    for (const std::string& query : queries) {
        engine.seconds.push_back(desk.searchTime(query, effort.runs));
    }
    result.sampledByEngineForPeers = engine.mean();
    result.fzf = peerTime(Peer({"fzf", "--filter"}), queries, file, effort.peerRuns);
    result.fzy = peerTime(Peer({"fzy", "-j", "1", "-e"}), queries, file, effort.peerRuns);
    std::filesystem::remove(file);
}

} // namespace

Measurement measure(std::size_t items, const Effort& effort) {
    Measurement result;
    result.items = items;
    const Desk desk(items, effort);
    std::size_t bytes = 0;
    for (const auto& list : desk.catalogue) {
        bytes += list->footprint();
    }
    result.bytesPerItem = static_cast<double>(bytes) / static_cast<double>(items);
    timeKeystrokes(desk, effort, result);
    timeBuilding(effort, result);
    timeNaive(desk, effort, result);
    timePeers(desk, effort, result);
    return result;
}

} // namespace pello::bench
