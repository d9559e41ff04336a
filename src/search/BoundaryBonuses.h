#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace pello {

/// The bonus of each character of `text`, in its own case: high where a word begins. The values
/// are those of MatchScore.
[[nodiscard]] std::vector<std::uint8_t> boundaryBonuses(std::string_view text);

} // namespace pello
