#pragma once

#include "answers/ConversionResult.h"
#include "answers/DateArithmetic.h"
#include "answers/Surroundings.h"
#include "answers/TimeZoneConversion.h"
#include "answers/UnitConversion.h"
#include "base/Date.h"

#include <optional>
#include <string_view>
#include <vector>

namespace pello {

/// Asks all converters what a query converts: quantities, times of day, dates.
///
/// Holds their tables and the locale's texts; make it once, where nobody waits for it. Used by one
/// thread at a time.
class Conversions {
public:
    explicit Conversions(const Surroundings& surroundings = {});

    /// The answers to `query` as typed at `now`: at most one of each kind, in the order unit, time,
    /// date.
    [[nodiscard]] std::vector<ConversionResult> results(std::string_view query, Date now) const;

private:
    [[nodiscard]] std::optional<ConversionResult> date(std::string_view text, Date now) const;

    UnitConversion units_;
    TimeZoneConversion times_;
    DateArithmetic dates_;
};

} // namespace pello
