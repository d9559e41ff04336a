#include "search/TextMatcher.h"

namespace pello {

std::optional<double> TextMatcher::score(const TextTable& table, std::uint32_t slot,
                                         double needed) {
    const auto text = table.bytes(slot);
    const std::size_t length = text.characters.size();
    if (needle_.isAbsent || length < needle_.size() ||
        !PresenceMask::mayContain(table.masks()[slot], needle_.mask)) {
        return std::nullopt;
    }
    ++work_.textsTried;
    const std::size_t reach = bound_.reach(length, needed);
    if (bound_.byLength(length) < needed ||
        !EarliestFit::exists(needle_.patterns, text.characters.data(), reach) ||
        !canScore(text, needed)) {
        return std::nullopt;
    }
    return exactScore(table, slot);
}

bool TextMatcher::contains(const TextTable& table, std::uint32_t slot) const {
    const auto text = table.bytes(slot).characters;
    return !needle_.isAbsent && PresenceMask::mayContain(table.masks()[slot], needle_.mask) &&
           EarliestFit::exists(needle_.patterns, text.data(), text.size()) &&
           (needle_.isAscii || containsCodes(table, slot));
}

std::vector<int> TextMatcher::positions(const TextTable& table, std::uint32_t slot) {
    return needle_.isAscii
               ? scores_.positions(std::span<const std::uint8_t>(needle_.bytes), table.bytes(slot))
               : scores_.positions(std::span<const char32_t>(needle_.codes), table.codes(slot));
}

bool TextMatcher::canScore(ScoredText<std::uint8_t> text, double needed) {
    if (text.characters.size() > places_.size()) {
        return true;
    }
    const std::span places(places_.data(), needle_.size());
    EarliestFit::findPlaces(needle_.patterns, text.characters, places);
    return bound_.byBonuses(places, text.bonuses) >= needed;
}

/// Bytes other than ASCII stand for several characters: only the codes tell.
bool TextMatcher::containsCodes(const TextTable& table, std::uint32_t slot) const {
    if (!table.hasCodes(slot)) {
        return false;
    }
    std::size_t found = 0;
    for (const char32_t code : table.codes(slot).characters) {
        found += found < needle_.size() && code == needle_.codes[found] ? 1U : 0U;
    }
    return found == needle_.size();
}

std::optional<double> TextMatcher::exactScore(const TextTable& table, std::uint32_t slot) {
    if (!needle_.isAscii && !containsCodes(table, slot)) {
        return std::nullopt;
    }
    return needle_.isAscii
               ? scores_.score(std::span<const std::uint8_t>(needle_.bytes), table.bytes(slot))
               : scores_.score(std::span<const char32_t>(needle_.codes), table.codes(slot));
}

} // namespace pello
