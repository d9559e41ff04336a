#pragma once

#include "search/EarliestFit.h"
#include "search/Needle.h"
#include "search/PresenceMask.h"
#include "search/ScoreBound.h"
#include "search/ScoreTable.h"
#include "search/SearchWork.h"
#include "search/TextTable.h"

#include <algorithm>
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
    constexpr std::uint32_t kChunk = 512;
    std::array<std::uint32_t, kChunk> slots;
    const EarliestFit::Row texts = {.bytes = table.bytes(group.first).characters.data(),
                                    .first = group.first,
                                    .length = group.length};
    for (std::uint32_t begin = group.first; begin < group.end; begin += kChunk) {
        const std::uint32_t end = std::min(begin + kChunk, group.end);
        double least = needed();
        const std::size_t mayFit =
            PresenceMask::select(table.masks(), begin, end, needle_.mask, slots.data());
        const std::size_t fitting =
            EarliestFit::select(needle_.patterns, texts, bound_.reach(group.length, least),
                                std::span(slots).first(mayFit));
        work_.textsTried += mayFit;
        for (const std::uint32_t slot : std::span(slots).first(fitting)) {
            const std::uint32_t number = table.numberAt(slot);
            if (!canScore(table.bytes(slot), least) || skips(number)) {
                continue;
            }
            if (const auto score = exactScore(table, slot)) {
                visit(number, *score);
                least = needed();
            }
        }
    }
}

} // namespace pello
