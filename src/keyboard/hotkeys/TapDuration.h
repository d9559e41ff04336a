#pragma once

#include "base/Date.h"

namespace pello {

/// Whether a key pressed and released at these times was tapped rather than held.
[[nodiscard]] inline bool isTap(Date pressed, Date released) {
    constexpr Seconds kLimit{0.35};
    return released - pressed < kLimit;
}

} // namespace pello
