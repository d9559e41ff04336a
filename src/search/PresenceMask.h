#pragma once

#include <array>
#include <cstdint>
#include <span>

/// Which characters a text has, in 64 bits: a text that contains a query in order has every
/// character of the query, so a missing bit rejects it without a look at the text.
///
/// Letters and digits have bits of their own, the other characters share what is left.
namespace pello::PresenceMask {

namespace detail {

constexpr unsigned bitIndex(unsigned byte) {
    constexpr unsigned kLetters = 26;
    constexpr unsigned kOwnBits = kLetters + 10;
    if (byte >= 'a' && byte <= 'z') {
        return byte - 'a';
    }
    if (byte >= '0' && byte <= '9') {
        return kLetters + byte - '0';
    }
    return kOwnBits + byte % (64 - kOwnBits);
}

constexpr std::array<std::uint64_t, 256> makeBits() {
    std::array<std::uint64_t, 256> bits{};
    for (unsigned byte = 0; byte < bits.size(); ++byte) {
        bits[byte] = std::uint64_t{1} << bitIndex(byte);
    }
    return bits;
}

inline constexpr std::array<std::uint64_t, 256> kBits = makeBits();

} // namespace detail

/// The bit of one character.
[[nodiscard]] inline std::uint64_t of(std::uint8_t character) {
    return detail::kBits[character];
}

/// The bits of all characters.
[[nodiscard]] inline std::uint64_t of(std::span<const std::uint8_t> characters) {
    std::uint64_t mask = 0;
    for (const std::uint8_t character : characters) {
        mask |= of(character);
    }
    return mask;
}

/// Whether a text with the bits `text` can contain a query with the bits `query`.
[[nodiscard]] inline bool mayContain(std::uint64_t text, std::uint64_t query) {
    return (query & ~text) == 0;
}

/// The first index from `index` on whose text can contain the query, or `end`. Most cannot: four
/// at a time are passed over.
[[nodiscard]] inline std::uint32_t next(const std::uint64_t* texts, std::uint32_t index,
                                        std::uint32_t end, std::uint64_t query) {
    for (; index + 4 <= end; index += 4) {
        const std::uint64_t* four = texts + index;
        // Without a branch for each: any difference from "cannot" is enough.
        const int may = int{mayContain(four[0], query)} + int{mayContain(four[1], query)} +
                        int{mayContain(four[2], query)} + int{mayContain(four[3], query)};
        if (may != 0) {
            break;
        }
    }
    while (index < end && !mayContain(texts[index], query)) {
        ++index;
    }
    return index;
}

} // namespace pello::PresenceMask
