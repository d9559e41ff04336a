#pragma once

#include "answers/CalendarStep.h"
#include "answers/DatePhrase.h"
#include "answers/DateReader.h"
#include "answers/DateWords.h"

#include <optional>

namespace pello {

/// What words that ask for a length of time say: "weeks until easter", "between 1 may and 4 july".
/// A plain value.
struct CountdownPhrase {
    enum class Direction { until, since, between };

    CalendarUnit unit = CalendarUnit::day;
    Direction direction = Direction::until;
    DatePhrase date;
    /// The other end, for `between`.
    std::optional<DatePhrase> otherDate;

    /// What `words` say; nothing when they say no such thing, or more.
    [[nodiscard]] static std::optional<CountdownPhrase>
    read(const DateWords& words, const DateReader& reader, CalendarDay today);
};

} // namespace pello
