#include "sources/GlyphTable.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace pello {
namespace {

#include "sources/GlyphTable.inc"

/// Takes the front of `text` up to the next `separator`, and that with it. The first byte is never
/// taken for one: "|" is a glyph too.
std::string_view takeField(std::string_view& text, char separator, std::size_t from = 0) {
    const std::size_t end = std::min(text.find(separator, from), text.size());
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return field;
}

Glyph glyphOf(std::string_view line) {
    const auto text = takeField(line, Glyph::kSeparator, 1);
    const auto tones = takeField(line, Glyph::kSeparator);
    const auto name = takeField(line, Glyph::kSeparator);
    return {.text = text,
            .tonePlaces = tones.empty() ? 0 : tones.front() - '0',
            .name = name,
            .keywords = line};
}

/// Takes the first scalar of well-formed, non-empty UTF-8.
std::uint32_t takeScalar(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const int length = std::max(1, std::countl_one(lead));
    std::uint32_t scalar = length == 1 ? lead : lead & (0x7FU >> static_cast<unsigned>(length));
    for (int i = 1; i < length; ++i) {
        scalar = (scalar << 6U) |
                 (static_cast<unsigned char>(utf8[static_cast<std::size_t>(i)]) & 0x3FU);
    }
    utf8.remove_prefix(static_cast<std::size_t>(length));
    return scalar;
}

std::string hex(std::uint32_t number) {
    static constexpr std::string_view kDigits = "0123456789abcdef";
    std::string digits;
    for (; number != 0; number /= 16) {
        digits.insert(digits.begin(), kDigits[number % 16]);
    }
    return digits;
}

} // namespace

std::vector<Glyph> glyphTable() {
    std::vector<Glyph> glyphs;
    glyphs.reserve(kGlyphCount);
    for (std::string_view group : kGlyphGroups) {
        while (!group.empty()) {
            glyphs.push_back(glyphOf(takeField(group, '\n')));
        }
    }
    return glyphs;
}

std::string glyphID(std::string_view text) {
    std::string id = "glyph:";
    while (!text.empty()) {
        id += (id.back() == ':' ? "" : "-") + hex(takeScalar(text));
    }
    return id;
}

} // namespace pello
