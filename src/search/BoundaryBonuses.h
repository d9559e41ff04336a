#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace pello {

/// The bonus of each character of `text`, in its own case, into `bonuses`: high where a word
/// begins. The values are those of MatchScore.
void boundaryBonuses(std::string_view text, std::vector<std::uint8_t>& bonuses);

/// Whether a word begins after this character.
[[nodiscard]] bool isSeparator(std::string_view character);

} // namespace pello
