#include "answers/DatePhrase.h"

namespace pello {
namespace {

using std::chrono::days;
using std::chrono::month_day;
using std::chrono::weekday;

/// As long as there may be no 29 February: from 1896 to 1904, say.
constexpr int kMostYearsBetween = 8;

CalendarStep shifted(days distance) {
    return {.count = static_cast<int>(distance.count())};
}

} // namespace

bool DatePhrase::isYearly() const {
    return std::holds_alternative<month_day>(meaning) ||
           std::holds_alternative<const Holiday*>(meaning);
}

std::optional<CalendarDay> DatePhrase::inYear(int year) const {
    if (const auto* const date = std::get_if<month_day>(&meaning)) {
        return calendarDay(year, *date);
    }
    if (const auto* const holiday = std::get_if<const Holiday*>(&meaning)) {
        return (*holiday)->inYear(year);
    }
    return std::nullopt;
}

std::optional<CalendarDay> DatePhrase::onOrAfter(CalendarDay day) const {
    if (const auto* const fixed = std::get_if<CalendarDay>(&meaning)) {
        return *fixed;
    }
    if (const auto* const named = std::get_if<weekday>(&meaning)) {
        return shifted(*named - weekday(day)).after(day);
    }
    for (int ahead = 0; ahead <= kMostYearsBetween; ++ahead) {
        if (const auto found = inYear(yearOf(day) + ahead); found && *found >= day) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<CalendarDay> DatePhrase::onOrBefore(CalendarDay day) const {
    if (const auto* const fixed = std::get_if<CalendarDay>(&meaning)) {
        return *fixed;
    }
    if (const auto* const named = std::get_if<weekday>(&meaning)) {
        return shifted(-(weekday(day) - *named)).after(day);
    }
    for (int back = 0; back <= kMostYearsBetween; ++back) {
        if (const auto found = inYear(yearOf(day) - back); found && *found <= day) {
            return found;
        }
    }
    return std::nullopt;
}

} // namespace pello
