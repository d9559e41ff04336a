#include "search/Report.h"

#include <cstdio>
#include <functional>
#include <map>
#include <string>

namespace pello::bench {
namespace {

using Value = std::function<std::optional<double>(const Measurement&)>;

enum class Goal { none, atMost, atLeast };

struct Line {
    std::string name;
    Value value;
    Goal goal = Goal::none;
    std::map<std::size_t, double> goals; // by number of items
};

constexpr double kMicro = 1e6;
constexpr double kNano = 1e9;

double perKeystroke(const Measurement& m, std::size_t total) {
    return static_cast<double>(total) / static_cast<double>(m.keystrokes.seconds.size());
}

std::optional<double> times(std::optional<double> slow, double fast) {
    return slow && fast > 0 ? std::optional(*slow / fast) : std::nullopt;
}

std::map<std::size_t, double> everywhere(double goal) {
    return {{1000, goal}, {10000, goal}, {100000, goal}, {1000000, goal}};
}

std::vector<Line> lines() {
    using M = Measurement;
    return {
        {"median, us",
         [](const M& m) { return m.keystrokes.quantile(0.5) * kMicro; },
         Goal::atMost,
         {{10000, 25}}},
        {"p99, us",
         [](const M& m) { return m.keystrokes.quantile(0.99) * kMicro; },
         Goal::atMost,
         {{1000, 40}, {10000, 150}, {100000, 2000}, {1000000, 20000}}},
        {"mean, us", [](const M& m) { return m.keystrokes.mean() * kMicro; }},
        {"slowest, us", [](const M& m) { return m.keystrokes.quantile(1) * kMicro; }},
        {"first letter, slowest, us",
         [](const M& m) { return m.firstKeystrokes.quantile(1) * kMicro; },
         Goal::atMost,
         {{1000000, 2000}}},
        {"ns per candidate",
         [](const M& m) { return m.keystrokes.mean() * kNano / static_cast<double>(m.items); }},
        {"index, bytes per item", [](const M& m) { return m.bytesPerItem; }, Goal::atMost,
         everywhere(300)},
        {"building, us per item", [](const M& m) { return m.buildPerItem * kMicro; }, Goal::atMost,
         everywhere(2.5)},
        {"1,000 items again, us",
         [](const M& m) { return m.rebuild ? std::optional(*m.rebuild * kMicro) : std::nullopt; },
         Goal::atMost, everywhere(3000)},
        {"texts tried per key", [](const M& m) { return perKeystroke(m, m.work.textsTried); }},
        {"tables filled per key",
         [](const M& m) { return perKeystroke(m, m.work.tablesFilled); },
         Goal::atMost,
         {{10000, 30}}},
        {"titles compared per key",
         [](const M& m) { return perKeystroke(m, m.work.titleComparisons); },
         Goal::atMost,
         {{10000, 10}}},
        {"naive, us", [](const M& m) { return times(m.naive, 1 / kMicro); }},
        {"naive with ASCII bytes, us", [](const M& m) { return times(m.naiveAscii, 1 / kMicro); }},
        {"  times slower",
         [](const M& m) { return times(m.naiveAscii, m.sampledByEngine); },
         Goal::atLeast,
         {{10000, 400}}},
        {"fzf --filter, us", [](const M& m) { return times(m.fzf, 1 / kMicro); }},
        {"  times slower",
         [](const M& m) { return times(m.fzf, m.sampledByEngineForPeers); },
         Goal::atLeast,
         {{10000, 100}, {1000000, 200}}},
        {"fzy -e -j 1, us", [](const M& m) { return times(m.fzy, 1 / kMicro); }},
        {"  times slower",
         [](const M& m) { return times(m.fzy, m.sampledByEngineForPeers); },
         Goal::atLeast,
         {{10000, 40}}}};
}

std::string cell(const Line& line, const Measurement& measurement) {
    const auto value = line.value(measurement);
    if (!value) {
        return "-";
    }
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), *value < 100 ? "%.2f" : "%.0f", *value);
    std::string result = text.data();
    const auto goal = line.goals.find(measurement.items);
    if (line.goal == Goal::none || goal == line.goals.end()) {
        return result;
    }
    const bool isMet = line.goal == Goal::atMost ? *value <= goal->second : *value >= goal->second;
    std::snprintf(text.data(), text.size(), " (%s %g)%s",
                  line.goal == Goal::atMost ? "<=" : ">=", goal->second, isMet ? "" : " MISSED");
    return result + text.data();
}

} // namespace

void print(const std::vector<Measurement>& measurements) {
    constexpr int kName = 28;
    constexpr int kColumn = 26;
    std::printf("%-*s", kName, "items");
    for (const Measurement& measurement : measurements) {
        std::printf("%*zu", kColumn, measurement.items);
    }
    std::printf("\n");
    for (const Line& line : lines()) {
        std::printf("%-*s", kName, line.name.c_str());
        for (const Measurement& measurement : measurements) {
            std::printf("%*s", kColumn, cell(line, measurement).c_str());
        }
        std::printf("\n");
    }
}

} // namespace pello::bench
