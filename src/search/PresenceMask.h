#pragma once

#include <array>
#include <cstddef>
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

/// Collects the indices from `begin` to before `end` whose texts can contain the query into
/// `found`, which has room for all of them, and gives their number.
///
/// What one text decides tells nothing about the next, so there is no branch for it; four texts of
/// which none can are passed over at once.
[[nodiscard]] inline std::size_t select(const std::uint64_t* texts, std::uint32_t begin,
                                        std::uint32_t end, std::uint64_t query,
                                        std::uint32_t* found) {
    std::size_t count = 0;
    const auto collect = [&](std::uint32_t index, bool may) {
        found[count] = index;
        count += may ? 1U : 0U;
    };
    std::uint32_t index = begin;
    for (; index + 4 <= end; index += 4) {
        const std::uint64_t* four = texts + index;
        const std::array<bool, 4> may = {mayContain(four[0], query), mayContain(four[1], query),
                                         mayContain(four[2], query), mayContain(four[3], query)};
        if (int{may[0]} + int{may[1]} + int{may[2]} + int{may[3]} != 0) {
            collect(index, may[0]);
            collect(index + 1, may[1]);
            collect(index + 2, may[2]);
            collect(index + 3, may[3]);
        }
    }
    for (; index < end; ++index) {
        collect(index, mayContain(texts[index], query));
    }
    return count;
}

} // namespace pello::PresenceMask
