#pragma once

#include "answers/ConversionResult.h"
#include "answers/Surroundings.h"
#include "base/Date.h"

#include <memory>
#include <optional>
#include <string_view>

namespace pello {

/// Tells what time it is elsewhere, and moves times from place to place: "time in tokyo", "3pm
/// london in new york", "9:30 tokyo".
///
/// Make it once, away from the main thread: it reads ICU's names of zones, cities and countries,
/// and the machine's zone, which takes some ten milliseconds. After that a query touches nothing
/// but memory. Immutable, but with ICU's formatters in it: one object is used by one thread at a
/// time.
class TimeZoneConversion {
public:
    explicit TimeZoneConversion(const Surroundings& surroundings = {});
    ~TimeZoneConversion();
    TimeZoneConversion(TimeZoneConversion&& other) noexcept;
    TimeZoneConversion& operator=(TimeZoneConversion&& other) noexcept;

    /// The answer to `text`, which must be trimmed and in lower case, at the moment `now`. A typed
    /// time is that of the day that it is at its place. Nothing when the text asks for no time, or
    /// `now` is not within the years 1 to 9999.
    [[nodiscard]] std::optional<ConversionResult> convert(std::string_view text, Date now) const;

private:
    struct Prepared;
    std::unique_ptr<Prepared> prepared_;
};

} // namespace pello
