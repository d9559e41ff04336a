#pragma once

#include <chrono>
#include <optional>

namespace pello {

/// A day of the Gregorian calendar, which here reaches back to before it was introduced.
using CalendarDay = std::chrono::sys_days;

/// The day of that date. Nothing when there is none, as on 30 February, or when it lies outside of
/// the years 1 to 9999, the ones that dates here may have.
[[nodiscard]] std::optional<CalendarDay> calendarDay(int year, std::chrono::month_day date);

/// The year that `day` lies in.
[[nodiscard]] int yearOf(CalendarDay day);

enum class CalendarUnit { day, week, month, year };

/// So many days, weeks, months or years; back in time when negative. A plain value.
struct CalendarStep {
    int count = 0;
    CalendarUnit unit = CalendarUnit::day;

    /// The day that many units after `day`. Where a month is too short for that, its last day.
    /// Nothing outside of the years 1 to 9999, however far.
    [[nodiscard]] std::optional<CalendarDay> after(CalendarDay day) const;

    friend bool operator==(const CalendarStep&, const CalendarStep&) = default;
};

/// The way from one day to another in whole units, and what is left of it. A plain value.
struct CalendarSpan {
    CalendarStep whole;
    int days = 0;

    /// From `first` to `last`, which is not before it: `days` after `whole` after `first`.
    [[nodiscard]] static CalendarSpan between(CalendarDay first, CalendarDay last,
                                              CalendarUnit unit);

    friend bool operator==(const CalendarSpan&, const CalendarSpan&) = default;
};

} // namespace pello
