#pragma once

#include "search/PreparedList.h"
#include "search/TextMatcher.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace pello {

/// Matches one query with the combined texts of one list: title and keywords joined by spaces.
///
/// Only for items of which no text matches by itself. Whether a text fits is found by walking
/// through its parts, which are prepared already; only a text that does is put together. Borrows
/// everything.
class CombinedMatcher {
public:
    CombinedMatcher(const PreparedList& list, const Needle& needle, const ScoreBound& bound,
                    TextMatcher& matcher, ScoreTable& scores)
        : list_(list), needle_(needle), bound_(bound), matcher_(matcher), scores_(scores) {}

    /// The score of a regular item's combined text of `length` characters, or nothing when it
    [[nodiscard]] std::optional<double> score(std::uint32_t item, std::size_t length,
                                              double needed);

    /// Whether the title or a keyword of an item matches by itself.
    [[nodiscard]] bool matchesApart(std::uint32_t item) const;

private:
    [[nodiscard]] bool fitsWithin(std::uint32_t item, std::size_t reach) const;
    void assemble(std::uint32_t item);
    void append(const TextTable& table, std::uint32_t slot);
    [[nodiscard]] std::optional<double> scoreCodes();

    const PreparedList& list_;
    const Needle& needle_;
    const ScoreBound& bound_;
    TextMatcher& matcher_;
    ScoreTable& scores_;
    std::vector<std::uint8_t> bytes_;
    std::vector<std::uint8_t> bonuses_;
    std::vector<char32_t> codes_; // only for a query that is not ASCII
};

} // namespace pello
