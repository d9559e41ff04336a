#pragma once

#include "answers/CalendarStep.h"
#include "answers/Holidays.h"

#include <chrono>
#include <optional>
#include <variant>

namespace pello {

/// What words say about a date, which may leave open the year or the week. A plain value.
struct DatePhrase {
    /// A day, a date of every year, a holiday (one of Holiday::all), or a day of every week.
    using Meaning =
        std::variant<CalendarDay, std::chrono::month_day, const Holiday*, std::chrono::weekday>;

    /// Where such words mean a date.
    enum class Use {
        /// Also when they are all that is typed.
        alone,
        /// Only in a larger phrase: "friday", "25/12".
        inPhrase,
        /// Only where days or the like are counted to or from them: "march", "2030".
        inCount
    };

    Meaning meaning;
    Use use = Use::alone;
    /// Whether the day is one that moves with today, such as "tomorrow" or "next easter".
    bool isRelative = false;

    /// Whether it is a date of every year.
    [[nodiscard]] bool isYearly() const;

    /// The first such day that is not before `day`, or the last one not after it; when the phrase
    /// names one day, that. Nothing beyond the years that dates have.
    [[nodiscard]] std::optional<CalendarDay> onOrAfter(CalendarDay day) const;
    [[nodiscard]] std::optional<CalendarDay> onOrBefore(CalendarDay day) const;

    /// A yearly date in that year; nothing when the year has none.
    [[nodiscard]] std::optional<CalendarDay> inYear(int year) const;
};

} // namespace pello
