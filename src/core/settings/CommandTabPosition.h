#pragma once

#include "base/RawValues.h"

namespace pello {

/// Where the Command-Tab overlay stands; `withLauncher` is the launcher panel's place.
enum class CommandTabPosition { withLauncher, top, center, bottom };

template <>
struct RawValues<CommandTabPosition> {
    static constexpr std::array names{"withLauncher", "top", "center", "bottom"};
};

} // namespace pello
