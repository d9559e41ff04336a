#include "answers/CountdownPhrase.h"

#include "answers/DateQuantity.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace pello {
namespace {

using Direction = CountdownPhrase::Direction;

/// What may come between "how many days" and the rest of the question.
constexpr auto kFillers =
    std::to_array<std::string_view>({"are", "is", "there", "it", "left", "remain", "remaining"});
constexpr std::size_t kMostFillers = 3;

constexpr auto kUntil = std::to_array<std::string_view>({"until", "till", "til"});
/// These need a unit before them: "to friday" may be anything.
constexpr auto kUntilAfterUnit = std::to_array<std::string_view>({"to", "before"});

template <class List>
bool isOneOf(const List& list, std::string_view word) {
    return std::find(list.begin(), list.end(), word) != list.end();
}

std::optional<Direction> direction(std::string_view word, bool hasUnit) {
    if (isOneOf(kUntil, word) || (hasUnit && isOneOf(kUntilAfterUnit, word))) {
        return Direction::until;
    }
    if (word == "since" || (hasUnit && word == "from")) {
        return Direction::since;
    }
    return word == "between" ? std::optional(Direction::between) : std::nullopt;
}

/// Whether there is another date after "from" or "between" and the first one.
bool leadsToOther(const DateWords& words, std::string_view link, std::size_t at) {
    if (link == "between") {
        return words.is(at, "and");
    }
    return link == "from" && (words.is(at, "to") || isOneOf(kUntil, words.text(at)));
}

/// What a question begins with: "days are there".
struct Opening {
    std::optional<CalendarUnit> unit;
    /// The piece after it.
    std::size_t end = 0;

    static Opening read(const DateWords& words) {
        Opening opening;
        const auto unit = DateQuantity::unit(words, 0, DateQuantity::Names::whole);
        if (unit && unit->count == 1) {
            opening = {.unit = unit->unit, .end = 1};
            while (opening.end <= kMostFillers && isOneOf(kFillers, words.text(opening.end))) {
                ++opening.end;
            }
        }
        return opening;
    }
};

} // namespace

std::optional<CountdownPhrase> CountdownPhrase::read(const DateWords& words,
                                                     const DateReader& reader, CalendarDay today) {
    const Opening opening = Opening::read(words);
    const bool hasUnit = opening.unit.has_value();
    const std::string_view link = words.text(opening.end);
    const auto direction = pello::direction(link, hasUnit);
    const auto date = direction ? reader.read(words, opening.end + 1, today) : std::nullopt;
    if (!date) {
        return std::nullopt;
    }
    CountdownPhrase phrase{.unit = opening.unit.value_or(CalendarUnit::day),
                           .direction = *direction,
                           .date = date->phrase};
    std::size_t end = date->end;
    if (leadsToOther(words, link, end)) {
        const auto other = reader.read(words, end + 1, today);
        if (!other) {
            return std::nullopt;
        }
        phrase.direction = Direction::between;
        phrase.otherDate = other->phrase;
        end = other->end;
    }
    const auto isAllowed = [&](const DatePhrase& named) {
        return hasUnit || named.use != DatePhrase::Use::inCount;
    };
    const bool isWhole =
        phrase.otherDate ? isAllowed(*phrase.otherDate) : phrase.direction != Direction::between;
    return end == words.size() && isAllowed(phrase.date) && isWhole ? std::optional(phrase)
                                                                    : std::nullopt;
}

} // namespace pello
