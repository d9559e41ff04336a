#pragma once

#include "answers/ClockTime.h"
#include "answers/TimePlace.h"
#include "answers/TimeZonePlaces.h"

#include <optional>
#include <string_view>

namespace pello {

/// What a query asks about times: "time in tokyo", "3pm london in new york". A plain value.
struct TimePhrase {
    /// The time that clocks show at the source; absent for the time that it is.
    std::optional<ClockTime> time;
    /// Absent for where the reader is.
    std::optional<TimePlace> source;
    std::optional<TimePlace> target;

    /// What `text` (trimmed, lower case) asks. Nothing when any word is left over, or a place is
    /// none of `places`; at once for a text that is too long or has neither a time nor a word for
    /// asking it.
    [[nodiscard]] static std::optional<TimePhrase> read(std::string_view text,
                                                        const TimeZonePlaces& places);
};

} // namespace pello
