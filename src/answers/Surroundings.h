#pragma once

#include <string>

namespace pello {

/// Where answers are read: the reader's language and habits, and the clock on the wall.
struct Surroundings {
    /// An ICU or POSIX name such as "de_DE"; empty for the user's (see ReadersLocale.h).
    std::string locale;
    /// A zone of the time zone database such as "Europe/Berlin"; empty for this machine's.
    std::string timeZone;

    friend bool operator==(const Surroundings&, const Surroundings&) = default;
};

} // namespace pello
