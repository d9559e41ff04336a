#pragma once

#include "search/PositionMask.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

/// Whether a text contains a query in order: each character as early as possible after the one
/// before. If that does not work out, nothing does.
///
/// In a text of up to 64 characters a step is a few operations on position masks:
///
///     text                 S a f e   M o d e
///     places of "a"        . X . . . . . . .
///     allowed after it     . . X X X X X X X
///     places of "d"        . . . . . . . X .
namespace pello::EarliestFit {

namespace detail {

template <unsigned Blocks>
[[nodiscard]] inline bool inBlocks(std::span<const std::uint8_t> query, const std::uint8_t* text,
                                   std::size_t length) {
    std::uint64_t allowed = PositionMask::firstBits(length);
    for (const std::uint8_t character : query) {
        const std::uint64_t found = PositionMask::places<Blocks>(character, text) & allowed;
        if (found == 0) {
            return false;
        }
        allowed &= PositionMask::aboveLowest(found);
    }
    return true;
}

[[nodiscard]] inline bool inLongText(std::span<const std::uint8_t> query, const std::uint8_t* text,
                                     std::size_t length) {
    const std::uint8_t* const end = text + length;
    for (const std::uint8_t character : query) {
        const void* found = std::memchr(text, character, static_cast<std::size_t>(end - text));
        if (found == nullptr) {
            return false;
        }
        text = static_cast<const std::uint8_t*>(found) + 1;
    }
    return true;
}

} // namespace detail

/// Whether the first `length` characters of `text` contain `query`. The text is readable for
/// whole blocks.
[[nodiscard]] inline __attribute__((always_inline)) bool
exists(std::span<const std::uint8_t> query, const std::uint8_t* text, std::size_t length) {
    switch (PositionMask::blocks(length)) {
    case 0:
        return query.empty();
    case 1:
        return detail::inBlocks<1>(query, text, length);
    case 2:
        return detail::inBlocks<2>(query, text, length);
    case 3:
        return detail::inBlocks<3>(query, text, length);
    case 4:
        return detail::inBlocks<4>(query, text, length);
    default:
        return detail::inLongText(query, text, length);
    }
}

/// Where each query character can lie in a text of at most 64 characters that contains the query:
/// behind the earliest places of those before it. As many masks as the query has characters.
inline void findPlaces(std::span<const std::uint8_t> query, std::span<const std::uint8_t> text,
                       std::span<std::uint64_t> places) {
    std::uint64_t allowed = PositionMask::firstBits(text.size());
    for (std::size_t i = 0; i < query.size(); ++i) {
        places[i] = PositionMask::places<4>(query[i], text.data()) & allowed;
        allowed &= PositionMask::aboveLowest(places[i]);
    }
}

} // namespace pello::EarliestFit
