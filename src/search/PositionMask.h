#pragma once

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
    return (std::uint64_t{1} << (std::bit_width(mask) - 1)) - 1;
}

/// The places of `byte` in 8 bytes, without vector instructions. Of the word's bytes exactly
/// those that are equal become 0 by the exclusive or; no carry crosses a byte. The multiplication
/// collects their top bits: byte k lands on bit 56 + k, and no two terms share a bit.
[[nodiscard]] inline std::uint64_t placesInWord(std::uint8_t byte, const std::uint8_t* text) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kLow = 0x7F * kOnes;
    std::uint64_t word = 0;
    std::memcpy(&word, text, sizeof word);
    word ^= byte * kOnes;
    const std::uint64_t equal = ~(((word & kLow) + kLow) | word | kLow);
    return ((equal >> 7) * 0x0102040810204080) >> 56;
}

/// The places of `byte` in the `kBlock` bytes at `text`.
[[nodiscard]] inline std::uint64_t placesInBlock(std::uint8_t byte, const std::uint8_t* text) {
#if defined(__SSE2__)
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    const __m128i equal = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(static_cast<char>(byte)));
    return static_cast<unsigned>(_mm_movemask_epi8(equal));
#else
    return placesInWord(byte, text) | placesInWord(byte, text + 8) << 8;
#endif
}

/// The places of `byte` in the `Blocks` (1 to 4) blocks at `text`.
template <unsigned Blocks>
[[nodiscard]] inline std::uint64_t places(std::uint8_t byte, const std::uint8_t* text) {
    std::uint64_t mask = 0;
    for (unsigned i = 0; i < Blocks; ++i) {
        mask |= placesInBlock(byte, text + i * kBlock) << (i * kBlock);
    }
    return mask;
}

} // namespace pello::PositionMask
