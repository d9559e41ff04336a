#pragma once

#include "sources/GlyphTable.h"

#include <array>
#include <string>

namespace pello {

/// An emoji in one of the skin tones.
struct TonedGlyph {
    std::string text;
    std::string name;
};

/// How many skin tones there are.
inline constexpr std::size_t kSkinTones = 5;

/// `glyph`, which takes skin tones, in each of them, the lightest first. Of several people all have
/// the same.
[[nodiscard]] std::array<TonedGlyph, kSkinTones> inSkinTones(const Glyph& glyph);

} // namespace pello
