#pragma once

#include "search/EarliestFit.h"
#include "search/Needle.h"
#include "search/PresenceMask.h"
#include "search/ScoreBound.h"
#include "search/ScoreTable.h"
#include "search/SearchWork.h"
#include "search/TextTable.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace pello {

/// Matches one query with the prepared texts of one list.
///
/// The cheap tests come first and the table last: presence mask, earliest fit within reach, bound
/// by bonuses. A text that cannot score what it takes is dropped as soon as that shows. Borrows
/// everything. The query must not be empty.
class TextMatcher {
public:
    TextMatcher(const Needle& needle, const ScoreBound& bound, ScoreTable& scores, SearchWork& work)
        : needle_(needle), bound_(bound), scores_(scores), work_(work) {}

    /// Calls `visit(number, score)` for the texts of `table` that can score `needed()`, short
    /// texts first, except those that `skips(number)`. What is needed may rise meanwhile.
    template <class Needed, class Skips, class Visit>
    void scan(const TextTable& table, Needed needed, Skips skips, Visit visit);

    /// The score of one text, or nothing when it does not match or cannot score `needed`.
    [[nodiscard]] std::optional<double> score(const TextTable& table, std::uint32_t slot,
                                              double needed);

    /// Whether one text contains the query in order, whatever it scores.
    [[nodiscard]] bool contains(const TextTable& table, std::uint32_t slot) const;

    /// The matched positions of a text that contains the query.
    [[nodiscard]] std::vector<int> positions(const TextTable& table, std::uint32_t slot);

private:
    template <class Needed, class Skips, class Visit>
    void scanGroup(const TextTable& table, const TextTable::Group& group, Needed needed,
                   Skips skips, Visit visit);
    [[nodiscard]] bool canScore(ScoredText<std::uint8_t> text, double needed);
    [[nodiscard]] bool containsCodes(const TextTable& table, std::uint32_t slot) const;
    [[nodiscard]] std::optional<double> exactScore(const TextTable& table, std::uint32_t slot);

    const Needle& needle_;
    const ScoreBound& bound_;
    ScoreTable& scores_;
    SearchWork& work_;
    std::array<std::uint64_t, PositionMask::kMostPositions> places_{};
};

template <class Needed, class Skips, class Visit>
void TextMatcher::scan(const TextTable& table, Needed needed, Skips skips, Visit visit) {
    if (needle_.isAbsent) {
        return;
    }
    for (const TextTable::Group& group : table.groups()) {
        if (group.length < needle_.size()) {
            continue;
        }
        if (bound_.byLength(group.length) < needed()) {
            return; // longer texts score no better
        }
        scanGroup(table, group, needed, skips, visit);
    }
}

template <class Needed, class Skips, class Visit>
void TextMatcher::scanGroup(const TextTable& table, const TextTable::Group& group, Needed needed,
                            Skips skips, Visit visit) {
    const EarliestFit::Query query = needle_.patterns;
    const std::uint64_t mask = needle_.mask;
    const std::uint32_t end = group.end;
    const std::uint8_t* const texts = table.bytes(group.first).characters.data();
    const std::size_t length = group.length;
    double least = needed();
    std::size_t reach = bound_.reach(length, least);
    std::size_t tried = 0;
    for (std::uint32_t slot = group.first;; ++slot) {
        slot = PresenceMask::next(table.masks(), slot, end, mask);
        if (slot == end) {
            break;
        }
        ++tried;
        if (!EarliestFit::exists(query, texts + (slot - group.first) * length, reach) ||
            !canScore(table.bytes(slot), least) || skips(table.numberAt(slot))) {
            continue;
        }
        if (const auto score = exactScore(table, slot)) {
            visit(table.numberAt(slot), *score);
            if (needed() > least) {
                least = needed();
                reach = bound_.reach(length, least);
            }
        }
    }
    work_.textsTried += tried;
}

} // namespace pello
