#pragma once

#include "updates/FeedProblem.h"
#include "updates/Release.h"

#include <cstddef>
#include <string_view>
#include <variant>
#include <vector>

/// The feed of the program's releases: RSS 2.0 whose items carry versions.
namespace pello::ReleaseFeed {

/// Nobody writes notes of this length; larger documents are refused.
inline constexpr std::size_t kLargest = std::size_t{2} << 20;

/// Releases, the newest first, each version once.
using Contents = std::variant<std::vector<Release>, FeedProblem>;

/// What the document `bytes` lists. Items without a version are left out. Damage of any kind gives
/// a problem. Any thread.
[[nodiscard]] Contents read(std::string_view bytes);

} // namespace pello::ReleaseFeed
