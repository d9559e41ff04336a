#pragma once

#include "updates/ReleaseVersion.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pello {

/// One release of the program, as its feed tells it.
struct Release {
    ReleaseVersion version;
    /// The day in the place where it was released; nothing when the feed does not say.
    std::optional<std::chrono::year_month_day> date;
    /// The notes in the few tags that `sanitizedNotes` leaves; may be empty.
    std::string notes;
    /// Where it can be had: an address of http or https; empty when the feed does not say.
    std::string link;
};

/// The day in a date such as "Sat, 21 Nov 2026 10:00:00 +0100", which is how feeds write them.
[[nodiscard]] std::optional<std::chrono::year_month_day> releaseDay(std::string_view text);

/// How many of `releases`, which are the newest first, are newer than `installed`.
[[nodiscard]] std::size_t newerCount(std::span<const Release> releases,
                                     const ReleaseVersion& installed);

} // namespace pello
