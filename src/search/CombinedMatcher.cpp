// The query has no white space, so no character of it matches a joining space, and an earliest fit
// in the joined text is one that goes on from part to part. In a regular item (see CombinedIndex)
// the characters of the joined text are those of its parts with the spaces between, and their
// bonuses too, but that a keyword begins after a space and not at the start.

#include "search/CombinedMatcher.h"

#include "search/MatchScore.h"

namespace pello {

std::optional<double> CombinedMatcher::score(std::uint32_t item, std::size_t length,
                                             double needed) {
    if (needle_.isAbsent || length < needle_.size() || bound_.byLength(length) < needed ||
        !fitsWithin(item, bound_.reach(length, needed)) || matchesApart(item)) {
        return std::nullopt;
    }
    assemble(item);
    if (!needle_.isAscii) {
        return scoreCodes();
    }
    const ScoredText<std::uint8_t> text = {std::span(bytes_).first(length),
                                           std::span(bonuses_).first(length)};
    return matcher_.scoreBytes(text, needed);
}

bool CombinedMatcher::matchesApart(std::uint32_t item) const {
    if (matcher_.contains(list_.titles(), list_.titles().slotOf(item))) {
        return true;
    }
    const TextTable& texts = list_.keywords().texts();
    for (const std::uint32_t keyword : list_.keywords().keywordsOf(item)) {
        if (matcher_.contains(texts, texts.slotOf(keyword))) {
            return true;
        }
    }
    return false;
}

/// Whether the first `reach` characters contain the query.
bool CombinedMatcher::fitsWithin(std::uint32_t item, std::size_t reach) const {
    std::span<const std::uint8_t> rest = needle_.bytes;
    std::size_t end = 0; // of the earliest fit so far
    std::size_t begin = 0;
    const auto walk = [&](const TextTable& table, std::uint32_t slot) {
        const auto text = table.bytes(slot).characters;
        if (!rest.empty() &&
            PresenceMask::mayContain(table.masks()[slot], PresenceMask::of(rest.front()))) {
            const auto [count, textEnd] = EarliestFit::advance(rest, text);
            rest = rest.subspan(count);
            end = count > 0 ? begin + textEnd : end;
        }
        begin += text.size() + 1;
    };
    const TextTable& texts = list_.keywords().texts();
    walk(list_.titles(), list_.titles().slotOf(item));
    for (const std::uint32_t keyword : list_.keywords().keywordsOf(item)) {
        if (rest.empty() || begin >= reach) {
            break;
        }
        walk(texts, texts.slotOf(keyword));
    }
    return rest.empty() && end <= reach;
}

void CombinedMatcher::assemble(std::uint32_t item) {
    bytes_.clear();
    bonuses_.clear();
    codes_.clear();
    append(list_.titles(), list_.titles().slotOf(item));
    const TextTable& texts = list_.keywords().texts();
    for (const std::uint32_t keyword : list_.keywords().keywordsOf(item)) {
        bytes_.push_back(' ');
        bonuses_.push_back(0); // never matched
        if (!needle_.isAscii) {
            codes_.push_back(U' ');
        }
        const std::size_t begin = bonuses_.size();
        append(texts, texts.slotOf(keyword));
        if (bonuses_.size() > begin) {
            bonuses_[begin] = MatchScore::kSeparatorBonus;
        }
    }
    bytes_.resize(bytes_.size() + PositionMask::kMostPositions); // read in whole blocks
    bonuses_.resize(bytes_.size());
}

void CombinedMatcher::append(const TextTable& table, std::uint32_t slot) {
    const auto [characters, bonuses] = table.bytes(slot);
    bytes_.insert(bytes_.end(), characters.begin(), characters.end());
    bonuses_.insert(bonuses_.end(), bonuses.begin(), bonuses.end());
    if (needle_.isAscii) {
        return;
    }
    if (table.hasCodes(slot)) {
        const auto codes = table.codes(slot).characters;
        codes_.insert(codes_.end(), codes.begin(), codes.end());
    } else {
        codes_.insert(codes_.end(), characters.begin(), characters.end());
    }
}

std::optional<double> CombinedMatcher::scoreCodes() {
    std::size_t found = 0;
    for (const char32_t code : codes_) {
        found += found < needle_.size() && code == needle_.codes[found] ? 1U : 0U;
    }
    if (found < needle_.size()) {
        return std::nullopt;
    }
    const ScoredText<char32_t> text = {codes_, std::span(bonuses_).first(codes_.size())};
    return scores_.score(std::span<const char32_t>(needle_.codes), text);
}

} // namespace pello
