#pragma once

#include "answers/CalendarStep.h"

#include <optional>
#include <span>
#include <string_view>

namespace pello {

/// A day of the year that has a name. A plain value whose names live as long as the program.
struct Holiday {
    /// How its date is found.
    enum class Rule {
        /// `day` of `month`.
        fixed,
        /// `day` days after Easter Sunday.
        afterEaster,
        /// `day` days after the first Monday of `month`, or after its fourth Thursday.
        afterFirstMonday,
        afterFourthThursday
    };

    Rule rule = Rule::fixed;
    unsigned month = 0;
    int day = 0;
    /// The first year that the rule holds for.
    int since = 1;
    /// In lower case and without apostrophes, with "|" between the names.
    std::string_view names;

    /// Its day in `year`; nothing before it was kept by this rule.
    [[nodiscard]] std::optional<CalendarDay> inYear(int year) const;

    /// Those that queries may name, alive as long as the program.
    [[nodiscard]] static std::span<const Holiday> all();
};

} // namespace pello
