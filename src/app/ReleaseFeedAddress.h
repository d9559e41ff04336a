#pragma once

#include <string>

namespace pello {

/// Where the feed of the releases stands: as the build says, else the one that came with the
/// program.
[[nodiscard]] std::string releaseFeedAddress();

} // namespace pello
