#include "answers/DateReader.h"

#include "answers/DateQuantity.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>

namespace pello {
namespace {

using std::chrono::month_day;
using Match = DateReader::Match;
using Use = DatePhrase::Use;

/// What may follow the number of a day, as in "25th", "1er", "25." and "25日".
constexpr auto kDayEndings =
    std::to_array<std::string_view>({"st", "nd", "rd", "th", "er", ".", "日", "일", "º", "ª"});
/// What may follow the number of a year.
constexpr auto kYearEndings = std::to_array<std::string_view>({".", "年", "년", "г", "р"});
/// What may stand between day, month and year.
constexpr auto kLinks = std::to_array<std::string_view>({"of", "de", "del"});

template <class List>
std::size_t skipping(const List& list, const DateWords& words, std::size_t at) {
    const bool isListed = std::find(list.begin(), list.end(), words.text(at)) != list.end();
    return isListed ? at + 1 : at;
}

struct Number {
    int value;
    std::size_t end;
};

std::optional<Number> dayNumber(const DateWords& words, std::size_t at) {
    const auto value = words.number(at, 1, 2);
    if (!value) {
        return std::nullopt;
    }
    const std::size_t end = words.isGlued(at + 1) ? skipping(kDayEndings, words, at + 1) : at + 1;
    return Number{.value = *value, .end = end};
}

std::optional<Number> yearNumber(const DateWords& words, std::size_t at) {
    const auto value = words.number(at, 4, 4);
    if (!value) {
        return std::nullopt;
    }
    return Number{.value = *value, .end = skipping(kYearEndings, words, at + 1)};
}

/// The year that follows a day and a month, also after a comma.
std::optional<Number> yearAfter(const DateWords& words, std::size_t at) {
    return yearNumber(words, skipping(kLinks, words, words.is(at, ",") ? at + 1 : at));
}

Match onlyDay(CalendarDay day, std::size_t end) {
    return {.phrase = {.meaning = day}, .end = end};
}

} // namespace

/// A date as it stands there, whether there is such a day or not.
struct DateReader::DayAndMonth {
    month_day date;
    std::optional<int> year;
    std::size_t end;

    DayAndMonth(std::chrono::month month, const Number& day, std::optional<Number> inYear)
        : date(month / day.value),
          year(inYear ? std::optional(inYear->value) : std::nullopt),
          end(inYear ? std::max(inYear->end, day.end) : day.end) {}
};

DateReader::DateReader(const icu::Locale& locale) : names_(locale), numeric_(locale) {
    for (const Holiday& holiday : Holiday::all()) {
        for (const std::string_view name : text::split(holiday.names, '|')) {
            holidays_.add(name, &holiday);
        }
    }
    relative_.add("today", 0);
    relative_.add("tomorrow", 1);
    relative_.add("yesterday", -1);
    relative_.add("day after tomorrow", 2);
    relative_.add("day before yesterday", -2);
}

std::optional<Match> DateReader::read(const DateWords& words, std::size_t at,
                                      CalendarDay today) const {
    const std::size_t first = words.is(at, "the") ? at + 1 : at;
    std::optional<Match> match;
    if (words.isNumber(first)) {
        match = numeric_.read(words, first, today);
    } else if (match = relative(words, first, today); !match) {
        match = holiday(words, first);
    }
    if (!match) {
        match = named(words, first);
    }
    if (!match) {
        match = weekday(words, first);
    }
    return match ? match : monthAlone(words, first);
}

/// "tomorrow", "next friday".
std::optional<Match> DateReader::relative(const DateWords& words, std::size_t at,
                                          CalendarDay today) const {
    std::optional<Match> match;
    if (const auto found = relative_.longest(words, at)) {
        const auto day = CalendarStep{.count = found->meaning}.after(today);
        match = day ? std::optional(onlyDay(*day, found->end)) : std::nullopt;
    } else {
        match = aside(words, at, today);
    }
    if (match) {
        match->phrase.isRelative = true;
    }
    return match;
}

/// What "next", "last" and "this" tell apart: the day after today, before it, or not before it.
std::optional<Match> DateReader::aside(const DateWords& words, std::size_t at,
                                       CalendarDay today) const {
    const bool isNext = words.is(at, "next");
    const bool isLast = words.is(at, "last");
    if (!isNext && !isLast && !words.is(at, "this")) {
        return std::nullopt;
    }
    std::size_t end = at + 2;
    std::optional<CalendarDay> day;
    const CalendarStep shift{.count = (isNext ? 1 : 0) - (isLast ? 1 : 0)};
    const auto unit = DateQuantity::single(words, at + 1);
    if (unit && unit->unit != CalendarUnit::day && shift.count != 0) { // "last day" is no date
        day = CalendarStep{.count = shift.count * unit->count, .unit = unit->unit}.after(today);
    } else {
        auto which = weekday(words, at + 1);
        which = which ? which : holiday(words, at + 1);
        which = which ? which : named(words, at + 1);
        const auto from = shift.after(today);
        if (!which || !from || std::holds_alternative<CalendarDay>(which->phrase.meaning)) {
            return std::nullopt;
        }
        end = which->end;
        day = isLast ? which->phrase.onOrBefore(*from) : which->phrase.onOrAfter(*from);
    }
    return day ? std::optional(onlyDay(*day, end)) : std::nullopt;
}

std::optional<Match> DateReader::holiday(const DateWords& words, std::size_t at) const {
    const auto found = holidays_.longest(words, at);
    if (!found) {
        return std::nullopt;
    }
    if (const auto year = yearNumber(words, found->end)) {
        const auto day = found->meaning->inYear(year->value);
        return day ? std::optional(onlyDay(*day, year->end)) : std::nullopt;
    }
    return Match{.phrase = {.meaning = found->meaning}, .end = found->end};
}

/// A date whose month has its name.
std::optional<Match> DateReader::named(const DateWords& words, std::size_t at) const {
    const auto found = dayAndMonth(words, at);
    if (!found || !found->date.ok()) {
        return std::nullopt;
    }
    if (found->year) {
        const auto day = calendarDay(*found->year, found->date);
        return day ? std::optional(onlyDay(*day, found->end)) : std::nullopt;
    }
    return Match{.phrase = {.meaning = found->date}, .end = found->end};
}

std::optional<DateReader::DayAndMonth> DateReader::dayAndMonth(const DateWords& words,
                                                               std::size_t at) const {
    if (const auto day = dayNumber(words, at)) {
        if (const auto month = names_.month(words, skipping(kLinks, words, day->end))) {
            return DayAndMonth(month->meaning, {.value = day->value, .end = month->end},
                               yearAfter(words, month->end));
        }
    }
    const auto leadingYear = yearNumber(words, at);
    const auto month = names_.month(words, leadingYear ? leadingYear->end : at);
    const auto day = month ? dayNumber(words, month->end) : std::nullopt;
    if (!day) {
        return std::nullopt;
    }
    return DayAndMonth(month->meaning, *day,
                       leadingYear ? leadingYear : yearAfter(words, day->end));
}

/// A day of the week, or a date that it goes with and that has its year.
std::optional<Match> DateReader::weekday(const DateWords& words, std::size_t at) const {
    const auto found = names_.weekday(words, at);
    if (!found) {
        return std::nullopt;
    }
    const std::size_t next = words.is(found->end, ",") ? found->end + 1 : found->end;
    if (const auto date = named(words, next)) {
        const auto* const day = std::get_if<CalendarDay>(&date->phrase.meaning);
        const bool isSame = day != nullptr && std::chrono::weekday(*day) == found->meaning;
        return isSame ? date : std::nullopt;
    }
    return Match{.phrase = {.meaning = found->meaning, .use = Use::inPhrase}, .end = found->end};
}

/// A month or a year by itself is counted from its first day.
std::optional<Match> DateReader::monthAlone(const DateWords& words, std::size_t at) const {
    using std::chrono::January;
    const auto month = names_.month(words, at);
    const auto year = month ? yearAfter(words, month->end) : yearNumber(words, at);
    if (!month && !year) {
        return std::nullopt;
    }
    const month_day first = (month ? month->meaning : January) / 1;
    if (!year) {
        return Match{.phrase = {.meaning = first, .use = Use::inCount}, .end = month->end};
    }
    const auto day = calendarDay(year->value, first);
    if (!day) {
        return std::nullopt;
    }
    return Match{.phrase = {.meaning = *day, .use = Use::inCount}, .end = year->end};
}

} // namespace pello
