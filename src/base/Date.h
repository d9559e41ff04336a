#pragma once

#include <chrono>
#include <compare>

namespace pello {

using Seconds = std::chrono::duration<double>;

/// A moment, in seconds since 2001-01-01 00:00:00 UTC (the form in which dates are stored).
struct Date {
    double sinceReference = 0;

    /// The reference date in seconds after 1970-01-01 00:00:00 UTC.
    static constexpr double kUnixOffset = 978307200;

    /// The time by the system's clock: for main loops, which everything else asks.
    [[nodiscard]] static Date ofSystemClock() {
        return fromUnix(Seconds(std::chrono::system_clock::now().time_since_epoch()).count());
    }
    [[nodiscard]] static Date fromUnix(double seconds) { return {seconds - kUnixOffset}; }
    [[nodiscard]] double unixSeconds() const { return sinceReference + kUnixOffset; }

    friend auto operator<=>(const Date&, const Date&) = default;
    friend Date operator+(Date date, Seconds delay) {
        return {date.sinceReference + delay.count()};
    }
    friend Seconds operator-(Date later, Date earlier) {
        return Seconds(later.sinceReference - earlier.sinceReference);
    }
};

} // namespace pello
