#pragma once

#include "search/CharacterCodes.h"
#include "search/PositionMask.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pello {

/// The characters of a query as one list's texts know them.
struct Needle {
    Needle(const std::vector<std::string>& characters, const CharacterCodes& codes);

    [[nodiscard]] std::size_t size() const { return bytes.size(); }

    /// Bytes and codes of the characters, as in PreparedText.
    std::vector<std::uint8_t> bytes;
    std::vector<char32_t> codes;
    /// The bytes as they are looked for.
    std::vector<PositionMask::Pattern> patterns;
    /// The bits that a text must have.
    std::uint64_t mask = 0;
    /// All characters are ASCII: texts can be judged by their bytes.
    bool isAscii = true;
    /// A character is in no text of the list.
    bool isAbsent = false;
};

} // namespace pello
