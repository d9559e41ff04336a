#include "answers/CalendarStep.h"

#include <cstdint>

namespace pello {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::month_day;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr int kFirstYear = 1;
constexpr int kLastYear = 9999;
constexpr CalendarDay kFirstDay = year(kFirstYear) / 1 / 1;
constexpr CalendarDay kLastDay = year(kLastYear) / 12 / 31;
constexpr int kMonths = 12;
constexpr int kWeek = 7;

constexpr bool isYear(std::int64_t number) {
    return number >= kFirstYear && number <= kLastYear;
}

/// Months since the one before the first of year 0.
std::int64_t monthNumber(year_month_day date) {
    return (std::int64_t{int{date.year()}} * kMonths) + unsigned{date.month()} - 1;
}

std::optional<CalendarDay> afterDays(CalendarDay from, std::int64_t count) {
    const std::int64_t number = from.time_since_epoch().count() + count;
    if (number < kFirstDay.time_since_epoch().count() ||
        number > kLastDay.time_since_epoch().count()) {
        return std::nullopt;
    }
    return CalendarDay(days(static_cast<days::rep>(number)));
}

/// Goes all months in one step, so that a short month on the way takes no days away.
std::optional<CalendarDay> afterMonths(CalendarDay from, std::int64_t count) {
    const year_month_day date(from);
    const std::int64_t number = monthNumber(date) + count;
    if (number < 0 || !isYear(number / kMonths)) {
        return std::nullopt;
    }
    const auto target = year(static_cast<int>(number / kMonths)) /
                        month(static_cast<unsigned>(number % kMonths) + 1);
    const day lastDay = (target / std::chrono::last).day();
    return CalendarDay(target / (date.day() < lastDay ? date.day() : lastDay));
}

int distance(CalendarDay first, CalendarDay last) {
    return static_cast<int>((last - first).count());
}

} // namespace

std::optional<CalendarDay> calendarDay(int inYear, month_day date) {
    const year_month_day whole(year(inYear), date.month(), date.day());
    if (!isYear(inYear) || !whole.ok()) {
        return std::nullopt;
    }
    return CalendarDay(whole);
}

int yearOf(CalendarDay day) {
    return int{year_month_day(day).year()};
}

std::optional<CalendarDay> CalendarStep::after(CalendarDay day) const {
    switch (unit) {
    case CalendarUnit::day:
        return afterDays(day, count);
    case CalendarUnit::week:
        return afterDays(day, std::int64_t{count} * kWeek);
    case CalendarUnit::month:
        return afterMonths(day, count);
    case CalendarUnit::year:
        return afterMonths(day, std::int64_t{count} * kMonths);
    }
    return std::nullopt;
}

CalendarSpan CalendarSpan::between(CalendarDay first, CalendarDay last, CalendarUnit unit) {
    const int apart = distance(first, last);
    CalendarSpan span{.whole = {.count = apart, .unit = unit}};
    if (unit == CalendarUnit::day) {
        return span;
    }
    if (unit == CalendarUnit::week) {
        span.whole.count = apart / kWeek;
    } else {
        const std::int64_t months = monthNumber(last) - monthNumber(first);
        span.whole.count = static_cast<int>(unit == CalendarUnit::year ? months / kMonths : months);
    }
    std::optional<CalendarDay> reached = span.whole.after(first);
    if (!reached || *reached > last) {
        --span.whole.count;
        reached = span.whole.after(first);
    }
    span.days = distance(reached.value_or(last), last);
    return span;
}

} // namespace pello
