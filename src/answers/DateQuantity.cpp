#include "answers/DateQuantity.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace pello::DateQuantity {
namespace {

using enum CalendarUnit;

constexpr std::size_t kMostDigits = 7;

struct UnitName {
    std::string_view name;
    CalendarStep step;
};

constexpr std::array kSingular = std::to_array<UnitName>({{"day", {1, day}},
                                                          {"week", {1, week}},
                                                          {"fortnight", {2, week}},
                                                          {"month", {1, month}},
                                                          {"year", {1, year}}});

constexpr std::array kPlural = std::to_array<UnitName>({{"days", {1, day}},
                                                        {"weeks", {1, week}},
                                                        {"fortnights", {2, week}},
                                                        {"months", {1, month}},
                                                        {"years", {1, year}}});

// "m" is left to meters and minutes.
constexpr std::array kShortNames = std::to_array<UnitName>({{"d", {1, day}},
                                                            {"w", {1, week}},
                                                            {"wk", {1, week}},
                                                            {"wks", {1, week}},
                                                            {"mo", {1, month}},
                                                            {"mos", {1, month}},
                                                            {"y", {1, year}},
                                                            {"yr", {1, year}},
                                                            {"yrs", {1, year}}});

constexpr auto kNumbers =
    std::to_array<std::string_view>({"a", "one", "two", "three", "four", "five", "six", "seven",
                                     "eight", "nine", "ten", "eleven", "twelve"});

template <class Table>
std::optional<CalendarStep> named(const Table& table, std::string_view name) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const UnitName& unit) { return unit.name == name; });
    return found != table.end() ? std::optional(found->step) : std::nullopt;
}

std::optional<int> number(const DateWords& words, std::size_t at) {
    if (words.isNumber(at)) {
        return words.number(at, 1, kMostDigits);
    }
    int value = 0;
    for (const std::string_view word : kNumbers) {
        if (words.is(at, word)) {
            return std::max(1, value); // "a" is one, too
        }
        ++value;
    }
    return std::nullopt;
}

} // namespace

std::optional<CalendarStep> unit(const DateWords& words, std::size_t at, Names names) {
    std::optional<CalendarStep> step = single(words, at);
    if (!step) {
        step = named(kPlural, words.text(at));
    }
    return step || names == Names::whole ? step : named(kShortNames, words.text(at));
}

std::optional<CalendarStep> single(const DateWords& words, std::size_t at) {
    return named(kSingular, words.text(at));
}

std::optional<Match> read(const DateWords& words, std::size_t at, Names names) {
    const auto count = number(words, at);
    const auto one = count ? unit(words, at + 1, names) : std::nullopt;
    if (!one) {
        return std::nullopt;
    }
    return Match{.step = {.count = *count * one->count, .unit = one->unit}, .end = at + 2};
}

} // namespace pello::DateQuantity
