#pragma once

#include <string>

namespace pello {

/// Where answers are read: the reader's language and habits, and the clock on the wall.
struct Surroundings {
    /// An ICU or POSIX name such as "de_DE"; empty for the user's (see ReadersLocale.h).
    std::string locale;
    /// A zone of the time zone database such as "Europe/Berlin"; empty for this machine's.
    std::string timeZone;

    /// The same, with the time zone named that this machine is set to now, if none was. Reads
    /// files; any thread.
    [[nodiscard]] Surroundings settled() const;

    friend bool operator==(const Surroundings&, const Surroundings&) = default;
};

} // namespace pello
