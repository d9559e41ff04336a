#pragma once

#include <unicode/basictz.h>

#include <chrono>
#include <string>

namespace pello {

/// A moment, in milliseconds since 1970-01-01 00:00:00 UTC.
using Moment = std::chrono::sys_time<std::chrono::milliseconds>;

/// What a calendar and a clock on the wall show.
using WallTime = std::chrono::local_time<std::chrono::milliseconds>;

/// Where a clock hangs: a city, a country, a zone, an offset. A plain value.
struct TimePlace {
    /// For the reader: "New York", "Pacific Time", "UTC+5".
    std::string name;
    /// The zone that its clocks follow, alive as long as the zones that gave it; null when they
    /// are `offset` ahead of UTC all year.
    const icu::BasicTimeZone* zone = nullptr;
    std::chrono::milliseconds offset{0};

    /// How far the clocks are ahead of UTC at `moment`.
    [[nodiscard]] std::chrono::milliseconds offsetAt(Moment moment) const;

    /// What the clocks show at `moment`.
    [[nodiscard]] WallTime wallTimeAt(Moment moment) const {
        return WallTime(moment.time_since_epoch() + offsetAt(moment));
    }

    /// When the clocks show `wall`: of two such moments the later; for a time that the clocks skip,
    /// the moment that they would have shown it without the change.
    [[nodiscard]] Moment momentOf(WallTime wall) const;
};

} // namespace pello
