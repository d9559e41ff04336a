#pragma once

#include "answers/CalendarStep.h"
#include "answers/DatePhrase.h"

#include <optional>

namespace pello {

/// Two days to count between, the earlier one first. A plain value.
struct DatePair {
    CalendarDay first;
    CalendarDay last;

    /// The days that two phrases mean together. Both are the next ones, seen from `today`, but a
    /// year that only one phrase names, or neither, is the same for the two of them; unless the
    /// other year brings "25 december" and "1 january" closer. Nothing when there is no such day.
    [[nodiscard]] static std::optional<DatePair> of(const DatePhrase& one, const DatePhrase& other,
                                                    CalendarDay today);
};

} // namespace pello
