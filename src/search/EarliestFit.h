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

using Query = std::span<const PositionMask::Pattern>;

namespace detail {

template <unsigned Blocks>
[[nodiscard]] inline bool inBlocks(Query query, const std::uint8_t* text, std::size_t length) {
    std::uint64_t allowed = PositionMask::firstBits(length);
    std::uint64_t found = 1;
    for (const PositionMask::Pattern& character : query) {
        found = PositionMask::places<Blocks>(character, text) & allowed;
        if (Blocks > 2 && found == 0) {
            return false; // one more step would cost more than a branch that was not foreseen
        }
        allowed &= PositionMask::aboveLowest(found);
    }
    return found != 0;
}

[[nodiscard]] inline bool inLongText(Query query, const std::uint8_t* text, std::size_t length) {
    const std::uint8_t* const end = text + length;
    for (const PositionMask::Pattern& character : query) {
        const void* found =
            std::memchr(text, character.bytes[0], static_cast<std::size_t>(end - text));
        if (found == nullptr) {
            return false;
        }
        text = static_cast<const std::uint8_t*>(found) + 1;
    }
    return true;
}

template <class Exists>
inline std::size_t select(std::span<std::uint32_t> slots, Exists exists) {
    std::size_t count = 0;
    for (const std::uint32_t slot : slots) {
        slots[count] = slot;
        count += exists(slot) ? 1U : 0U;
    }
    return count;
}

} // namespace detail

/// Texts of one length in a row: the first is that of slot `first`.
struct Row {
    const std::uint8_t* bytes;
    std::uint32_t first;
    std::uint32_t length;
};

/// Keeps of `slots` those whose texts contain `query` in their first `reach` characters, in front,
/// and gives their number.
[[nodiscard]] inline std::size_t select(Query query, Row texts, std::size_t reach,
                                        std::span<std::uint32_t> slots) {
    const auto keep = [&](auto exists) {
        return detail::select(slots, [&](std::uint32_t slot) {
            const std::size_t place = slot - texts.first;
            return exists(query, texts.bytes + place * texts.length, reach);
        });
    };
    switch (PositionMask::blocks(reach)) {
    case 0:
        return 0;
    case 1:
        return keep(detail::inBlocks<1>);
    case 2:
        return keep(detail::inBlocks<2>);
    case 3:
        return keep(detail::inBlocks<3>);
    case 4:
        return keep(detail::inBlocks<4>);
    default:
        return keep(detail::inLongText);
    }
}

/// Whether the first `length` characters of `text` contain `query`. The text is readable for
/// whole blocks.
[[nodiscard]] inline __attribute__((always_inline)) bool
exists(Query query, const std::uint8_t* text, std::size_t length) {
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

namespace detail {

template <unsigned Blocks>
inline void findPlaces(Query query, const std::uint8_t* text, std::size_t length,
                       std::span<std::uint64_t> places) {
    std::uint64_t allowed = PositionMask::firstBits(length);
    for (std::size_t i = 0; i < query.size(); ++i) {
        places[i] = PositionMask::places<Blocks>(query[i], text) & allowed;
        allowed &= PositionMask::aboveLowest(places[i]);
    }
}

} // namespace detail

/// Where each query character can lie in a text of at most 64 characters that contains the query:
/// behind the earliest places of those before it. As many masks as the query has characters.
inline void findPlaces(Query query, std::span<const std::uint8_t> text,
                       std::span<std::uint64_t> places) {
    switch (PositionMask::blocks(text.size())) {
    case 1:
        detail::findPlaces<1>(query, text.data(), text.size(), places);
        break;
    case 2:
        detail::findPlaces<2>(query, text.data(), text.size(), places);
        break;
    case 3:
        detail::findPlaces<3>(query, text.data(), text.size(), places);
        break;
    default:
        detail::findPlaces<4>(query, text.data(), text.size(), places);
        break;
    }
}

} // namespace pello::EarliestFit
