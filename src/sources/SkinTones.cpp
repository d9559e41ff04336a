#include "sources/SkinTones.h"

#include <string_view>

namespace pello {
namespace {

struct SkinTone {
    std::string_view modifier;
    std::string_view name;
};

constexpr std::array<SkinTone, kSkinTones> kTones = {{
    {"\U0001F3FB", "light skin tone"},
    {"\U0001F3FC", "medium-light skin tone"},
    {"\U0001F3FD", "medium skin tone"},
    {"\U0001F3FE", "medium-dark skin tone"},
    {"\U0001F3FF", "dark skin tone"},
}};

// Asks for the coloured form of a character; a skin tone stands in its place.
constexpr std::string_view kEmojiStyle = "\uFE0F";

std::size_t lengthOfFirstScalar(std::string_view utf8) {
    std::size_t length = 1;
    while (length < utf8.size() && (static_cast<unsigned char>(utf8[length]) & 0xC0U) == 0x80U) {
        ++length;
    }
    return length;
}

/// A tone stands after the first person, and with two people after the last too.
std::string toned(const Glyph& glyph, std::string_view modifier) {
    std::string_view rest = glyph.text;
    const std::size_t first = lengthOfFirstScalar(rest);
    std::string text(rest.substr(0, first));
    text += modifier;
    rest.remove_prefix(first);
    if (rest.starts_with(kEmojiStyle)) {
        rest.remove_prefix(kEmojiStyle.size());
    }
    text += rest;
    if (glyph.tonePlaces == 2) {
        text += modifier;
    }
    return text;
}

} // namespace

std::array<TonedGlyph, kSkinTones> inSkinTones(const Glyph& glyph) {
    std::array<TonedGlyph, kSkinTones> variants;
    // Names such as "man: red hair" go on with a comma.
    const auto* const joint = glyph.name.find(':') == std::string_view::npos ? ": " : ", ";
    for (std::size_t i = 0; i < kSkinTones; ++i) {
        variants[i] = {.text = toned(glyph, kTones[i].modifier),
                       .name = std::string(glyph.name) + joint + std::string(kTones[i].name)};
    }
    return variants;
}

} // namespace pello
