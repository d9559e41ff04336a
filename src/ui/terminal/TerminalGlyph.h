#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// One user-perceived character in the form that all terminals give the same number of columns.
struct TerminalGlyph {
    std::string text;
    /// In columns; never 0.
    int width = 1;
    bool isMarked = false;

    friend bool operator==(const TerminalGlyph&, const TerminalGlyph&) = default;
};

/// Text cut into what terminals show. Widths are those of the process's locale, which has to be a
/// UTF-8 one.
namespace terminal {

using Glyphs = std::vector<TerminalGlyph>;

/// `utf8` on one line: line breaks and control characters read as spaces, what takes no room by
/// itself is left out. `marks` are positions of characters.
[[nodiscard]] Glyphs glyphs(std::string_view utf8, std::span<const int> marks = {});

/// In columns.
[[nodiscard]] int width(std::span<const TerminalGlyph> glyphs);

/// `glyphs` in at most `columns`, with an ellipsis for what is left out.
[[nodiscard]] Glyphs elidedInMiddle(const Glyphs& glyphs, int columns);
[[nodiscard]] Glyphs elidedAtEnd(const Glyphs& glyphs, int columns);

/// `glyphs` broken at spaces into lines of at most `columns`; at most `most` of them, the last one
/// elided.
[[nodiscard]] std::vector<Glyphs> wrapped(const Glyphs& glyphs, int columns, int most);

} // namespace terminal

} // namespace pello
