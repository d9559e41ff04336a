#pragma once

#include "search/CharacterCodes.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace pello {

/// A text made ready for matching, lower-cased as a whole and split into characters.
struct PreparedText {
    /// One byte per character: ASCII characters are themselves, all others share the upper half.
    /// So a byte decides for ASCII, and can only rule out otherwise.
    std::vector<std::uint8_t> bytes;
    /// The boundary bonus of each character.
    std::vector<std::uint8_t> bonuses;
    /// The code of each character; empty when all are ASCII.
    std::vector<char32_t> codes;
};

/// The byte of the character with this code.
[[nodiscard]] constexpr std::uint8_t characterByte(char32_t code) {
    constexpr char32_t kMultiplier = 2654435761; // spreads neighbouring codes
    return static_cast<std::uint8_t>(code < 0x80 ? code : 0x80 | (code * kMultiplier) >> 25);
}

/// Prepares `text` into `prepared`, whose memory is used again.
void prepareText(std::string_view text, CharacterCodes& codes, PreparedText& prepared);

} // namespace pello
