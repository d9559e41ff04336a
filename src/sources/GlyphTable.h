#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// One emoji or symbol as the catalogue's table has it. The texts live as long as the program.
struct Glyph {
    std::string_view text;
    /// At how many people the emoji takes a skin tone: 0, 1 or 2.
    int tonePlaces = 0;
    std::string_view name;
    /// Further words that find it, with `kSeparator` between them.
    std::string_view keywords;

    static constexpr char kSeparator = '|';
};

/// Every glyph, in the order of browsing: the emoji without skin tones, then the symbols. A new
/// list of views into a constant text.
[[nodiscard]] std::vector<Glyph> glyphTable();

/// The identity of the item for `text`: its code points, as in "glyph:1f44d-1f3fd".
[[nodiscard]] std::string glyphID(std::string_view text);

} // namespace pello
