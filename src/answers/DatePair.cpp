#include "answers/DatePair.h"

#include <algorithm>
#include <variant>

namespace pello {
namespace {

/// Whether a yearly date beside the phrase takes its year from it.
bool tellsYear(const DatePhrase& phrase) {
    return phrase.isYearly() ||
           (std::holds_alternative<CalendarDay>(phrase.meaning) && !phrase.isRelative);
}

/// The day of `yearly` in the year of `start`, where it usually comes after that; when it does not,
/// the one of the next year if that is closer.
std::optional<CalendarDay> following(const DatePhrase& yearly, CalendarDay start) {
    const auto same = yearly.inYear(yearOf(start));
    const auto next = yearly.inYear(yearOf(start) + 1);
    if (!same) {
        return yearly.onOrAfter(start);
    }
    return next && *same < start && *next - start < start - *same ? next : same;
}

/// The same towards the past.
std::optional<CalendarDay> leadingTo(const DatePhrase& yearly, CalendarDay end) {
    const auto same = yearly.inYear(yearOf(end));
    const auto previous = yearly.inYear(yearOf(end) - 1);
    if (!same) {
        return yearly.onOrBefore(end);
    }
    return previous && *same > end && end - *previous < *same - end ? previous : same;
}

} // namespace

std::optional<DatePair> DatePair::of(const DatePhrase& one, const DatePhrase& other,
                                     CalendarDay today) {
    auto first = one.onOrAfter(today);
    auto last = other.onOrAfter(today);
    if (first && other.isYearly() && tellsYear(one)) {
        last = following(other, *first);
    } else if (last && one.isYearly() && tellsYear(other)) {
        first = leadingTo(one, *last);
    }
    if (!first || !last) {
        return std::nullopt;
    }
    return DatePair{.first = std::min(*first, *last), .last = std::max(*first, *last)};
}

} // namespace pello
