#pragma once

#include "answers/ConversionResult.h"
#include "answers/Surroundings.h"
#include "base/Date.h"

#include <memory>
#include <optional>
#include <string_view>

namespace pello {

/// Counts days between dates, and finds dates: "weeks until easter", "15 march + 90 days".
///
/// Dates are Gregorian at all times, in the years 1 to 9999. Make it once, away from the user: it
/// has ICU read names and formats. For one thread at a time.
class DateArithmetic {
public:
    /// Reads and writes dates as the reader does, and knows which day it is there.
    explicit DateArithmetic(const Surroundings& surroundings = {});
    ~DateArithmetic();
    DateArithmetic(const DateArithmetic&) = delete;
    DateArithmetic& operator=(const DateArithmetic&) = delete;

    /// How long it is until, since or between dates: "days until christmas", "since 1 jan 2020",
    /// "between 1 may and 4 july". `text` must be trimmed and in lower case. Nothing when it is not
    /// that from its first word to its last.
    [[nodiscard]] std::optional<ConversionResult> countdown(std::string_view text, Date now) const;

    /// The date that is named or reckoned: "25 december", "next friday", "2 months ago",
    /// "monday + 2 weeks". As with `countdown` the whole text must say so.
    [[nodiscard]] std::optional<ConversionResult> offset(std::string_view text, Date now) const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace pello
