#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Where a byte stands in a text of at most 64 bytes, as the bits of one number: bit i for
/// position i. Walking through a text then is arithmetic on such numbers.
namespace pello::PositionMask {

/// Texts are read in blocks of this size, beyond their end if need be.
inline constexpr std::size_t kBlock = 16;
inline constexpr std::size_t kMostPositions = 64;

/// The blocks that cover `length` bytes.
[[nodiscard]] constexpr unsigned blocks(std::size_t length) {
    return static_cast<unsigned>((length + kBlock - 1) / kBlock);
}

/// The bits below `count`, which is at most 64.
[[nodiscard]] constexpr std::uint64_t firstBits(std::size_t count) {
    return count >= kMostPositions ? ~std::uint64_t{0} : (std::uint64_t{1} << count) - 1;
}

/// The bits above the lowest set bit of `mask`, which is not 0.
[[nodiscard]] constexpr std::uint64_t aboveLowest(std::uint64_t mask) {
    return ~(mask ^ (mask - 1));
}

/// The bits below the highest set bit of `mask`, which is not 0.
[[nodiscard]] constexpr std::uint64_t belowHighest(std::uint64_t mask) {
    // NOLINTNEXTLINE(clang-analyzer-core.BitwiseShift): the mask is not 0
    return (std::uint64_t{1} << (std::bit_width(mask) - 1)) - 1;
}

/// A character as it is looked for: its byte all over a block.
struct alignas(kBlock) Pattern {
    explicit Pattern(std::uint8_t byte) { bytes.fill(byte); }
    std::array<std::uint8_t, kBlock> bytes{};
};

/// The places of a character in 8 bytes, without vector instructions. Of the word's bytes exactly
/// those that are equal become 0 by the exclusive or; no carry crosses a byte. The multiplication
/// collects their top bits: byte k lands on bit 56 + k, and no two terms share a bit.
[[nodiscard]] inline std::uint64_t placesInWord(const Pattern& pattern, const std::uint8_t* text) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::uint64_t kLow = 0x7F7F7F7F7F7F7F7F;
    std::uint64_t word = 0;
    std::uint64_t wanted = 0;
    std::memcpy(&word, text, sizeof word);
    std::memcpy(&wanted, pattern.bytes.data(), sizeof wanted);
    word ^= wanted;
    const std::uint64_t equal = ~(((word & kLow) + kLow) | word | kLow);
    return ((equal >> 7) * 0x0102040810204080) >> 56;
}

/// The places of a character in the `kBlock` bytes at `text`.
[[nodiscard]] inline std::uint64_t placesInBlock(const Pattern& pattern, const std::uint8_t* text) {
#if defined(__SSE2__)
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    const __m128i wanted = _mm_load_si128(reinterpret_cast<const __m128i*>(pattern.bytes.data()));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, wanted)));
#else
    return placesInWord(pattern, text) | placesInWord(pattern, text + 8) << 8;
#endif
}

/// The places of a character in the `Blocks` (1 to 4) blocks at `text`.
template <unsigned Blocks>
[[nodiscard]] inline std::uint64_t places(const Pattern& pattern, const std::uint8_t* text) {
    std::uint64_t mask = 0;
    for (unsigned i = 0; i < Blocks; ++i) {
        mask |= placesInBlock(pattern, text + i * kBlock) << (i * kBlock);
    }
    return mask;
}

} // namespace pello::PositionMask
