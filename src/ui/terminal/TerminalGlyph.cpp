#include "ui/terminal/TerminalGlyph.h"

#include "base/Text.h"

#include <algorithm>
#include <cstddef>
#include <cwchar>
#include <iterator>
#include <optional>
#include <utility>
#include <wchar.h> // NOLINT(modernize-deprecated-headers): wcwidth is not the standard library's

// Terminals disagree about pictures that are made of several scalars: some draw one wide picture,
// others each part in columns of its own. A line that only one kind shows aligned is ruined on the
// other, so such a picture is shown as its first part: a family as its first member, a hand without
// its skin tone. Flags are safe: two letters of one column each, or one picture of two.

namespace pello::terminal {
namespace {

struct Scalar {
    std::string_view text;
    wchar_t value;
};

std::vector<Scalar> scalars(std::string_view character) {
    std::vector<Scalar> found;
    std::mbstate_t state = {};
    while (!character.empty()) {
        wchar_t value = 0;
        const std::size_t length = std::mbrtowc(&value, character.data(), character.size(), &state);
        if (length == 0 || length > character.size()) {
            break;
        }
        found.push_back({.text = character.substr(0, length), .value = value});
        character.remove_prefix(length);
    }
    return found;
}

bool isFlagLetter(const Scalar& scalar) {
    return scalar.value >= 0x1F1E6 && scalar.value <= 0x1F1FF;
}

bool isControl(const Scalar& scalar) {
    return scalar.value < 0x20 || (scalar.value >= 0x7F && scalar.value < 0xA0) ||
           scalar.value == 0x2028 || scalar.value == 0x2029;
}

/// The parts of `character` that are shown.
std::vector<Scalar> shown(std::string_view character) {
    auto parts = scalars(character);
    if (parts.size() > 1 && text::isShownAsEmoji(character)) {
        const auto end = std::find_if_not(parts.begin() + 1, parts.end(), isFlagLetter);
        parts.erase(end, parts.end());
    }
    return parts;
}

/// Nothing for what takes no room.
std::optional<TerminalGlyph> glyph(std::string_view character) {
    const auto parts = shown(character);
    if (parts.empty() || isControl(parts.front())) {
        return TerminalGlyph{.text = " "};
    }
    TerminalGlyph made{.text = "", .width = 0};
    for (const Scalar& part : parts) {
        const int columns = ::wcwidth(part.value);
        if (columns < 0 || (columns == 0 && made.width == 0)) {
            continue; // unknown, or a mark without anything to stand on
        }
        made.text += part.text;
        made.width += columns;
    }
    if (made.width == 0) {
        const bool isUnknown = ::wcwidth(parts.front().value) < 0;
        return isUnknown ? std::optional(TerminalGlyph{.text = "�"}) : std::nullopt;
    }
    return made;
}

const TerminalGlyph kEllipsis{.text = "…"};

/// As many of `glyphs` from their start as fit into `columns`.
template <class Range>
Glyphs fitting(const Range& glyphs, int columns) {
    Glyphs fit;
    for (const TerminalGlyph& each : glyphs) {
        columns -= each.width;
        if (columns < 0) {
            break;
        }
        fit.push_back(each);
    }
    return fit;
}

/// Where a line that starts at `begin` ends: behind the last word that fits.
Glyphs::const_iterator lineEnd(Glyphs::const_iterator begin, Glyphs::const_iterator end,
                               int columns) {
    auto lastSpace = end;
    auto place = begin;
    for (; place != end && columns >= place->width; ++place) {
        columns -= place->width;
        if (place->text == " ") {
            lastSpace = place;
        }
    }
    const bool breaksWord = place != end && place->text != " ";
    return breaksWord && lastSpace != end ? lastSpace : place;
}

} // namespace

Glyphs glyphs(std::string_view utf8, std::span<const int> marks) {
    const std::string sound = text::wellFormed(utf8);
    Glyphs made;
    int position = 0;
    for (const auto character : text::characterViews(sound)) {
        if (auto next = glyph(character)) {
            next->isMarked = std::ranges::binary_search(marks, position);
            made.push_back(std::move(*next));
        }
        ++position;
    }
    return made;
}

int width(std::span<const TerminalGlyph> glyphs) {
    int columns = 0;
    for (const TerminalGlyph& each : glyphs) {
        columns += each.width;
    }
    return columns;
}

Glyphs elidedInMiddle(const Glyphs& glyphs, int columns) {
    if (width(glyphs) <= columns || columns <= 0) {
        return columns <= 0 ? Glyphs{} : glyphs;
    }
    const int room = columns - kEllipsis.width;
    const Glyphs tail = fitting(Glyphs(glyphs.rbegin(), glyphs.rend()), room / 2);
    Glyphs made = fitting(glyphs, room - width(tail));
    made.push_back(kEllipsis);
    made.insert(made.end(), tail.rbegin(), tail.rend());
    return made;
}

Glyphs elidedAtEnd(const Glyphs& glyphs, int columns) {
    if (width(glyphs) <= columns || columns <= 0) {
        return columns <= 0 ? Glyphs{} : glyphs;
    }
    Glyphs made = fitting(glyphs, columns - kEllipsis.width);
    made.push_back(kEllipsis);
    return made;
}

std::vector<Glyphs> wrapped(const Glyphs& glyphs, int columns, int most) {
    std::vector<Glyphs> lines;
    auto place = glyphs.begin();
    while (place != glyphs.end() && std::cmp_less(lines.size(), most)) {
        const auto end = lineEnd(place, glyphs.end(), columns);
        if (std::cmp_equal(lines.size() + 1, most) || end == place) { // too narrow, or the last
            lines.push_back(elidedAtEnd(Glyphs(place, glyphs.end()), columns));
            break;
        }
        lines.emplace_back(place, end);
        place = std::find_if(end, glyphs.end(), [](const auto& each) { return each.text != " "; });
    }
    return lines;
}

} // namespace pello::terminal
