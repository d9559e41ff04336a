#pragma once

#include "answers/CalendarStep.h"
#include "answers/DatePhrase.h"
#include "answers/DateReader.h"
#include "answers/DateWords.h"

#include <optional>
#include <vector>

namespace pello {

/// What words that name a date say: the date itself, "25 december", or where to go from one, "today
/// + 3 weeks". A plain value.
struct OffsetPhrase {
    DatePhrase base;
    /// From the base on, one after the other; none when the base is all there is.
    std::vector<CalendarStep> steps;

    /// What `words` say; nothing when they name no date, or say more.
    [[nodiscard]] static std::optional<OffsetPhrase>
    read(const DateWords& words, const DateReader& reader, CalendarDay today);
};

} // namespace pello
