#pragma once

#include "search/KeptRows.h"
#include "search/LearnedItems.h"
#include "search/SearchQuery.h"
#include "search/TextMatcher.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace pello {

/// What the searches of all lists for one query share.
struct SearchState {
    const SearchQuery& query;
    const UsageStore& usage;
    LearnedItems& learned;
    ScoreBound bound;
    ScoreTable scores;
    SearchWork work;
};

/// One query's search in one list, in steps: what each step finds is offered to the rows kept so
/// far, and what could not join them is left out. Steps that bring high scores come first.
///
/// An item belongs to exactly one judgement: learned items to `searchLearned`, others with a
/// keyword that is the query to `searchExact`, all others to the remaining steps.
class ListSearch {
public:
    /// `index` is the list's place in the catalogue. Borrows everything.
    ListSearch(const PreparedList& list, std::uint32_t index, SearchState& state);
    ListSearch(const ListSearch&) = delete;
    ListSearch& operator=(const ListSearch&) = delete;

    void searchLearned(KeptRows& rows);
    void searchExact(KeptRows& rows);
    void searchTitles(KeptRows& rows);
    void searchKeywords(KeptRows& rows);
    void searchCombined(KeptRows& rows);

    /// The row of one item, its boost included, or nothing when it does not match.
    [[nodiscard]] std::optional<ScoredRow> rowOf(std::uint32_t item);

    /// The title's positions to highlight for a row that matched by title.
    [[nodiscard]] std::vector<int> titleMatches(std::uint32_t item);

private:
    struct Score {
        double value;
        bool isByTitle;
    };

    /// The score of one item, or nothing when it does not match or cannot score `needed`.
    [[nodiscard]] std::optional<Score> score(std::uint32_t item, double needed);
    [[nodiscard]] bool matchesApart(std::uint32_t item) const;
    template <class Skips>
    void offerItems(std::uint32_t keyword, double score, Skips skips, KeptRows& rows);
    [[nodiscard]] bool isLearned(std::uint32_t item) const;
    [[nodiscard]] bool isExact(std::uint32_t item) const;
    [[nodiscard]] bool isJudgedElsewhere(std::uint32_t item) const {
        return isLearned(item) || isExact(item);
    }

    const PreparedList& list_;
    std::uint32_t index_;
    SearchState& state_;
    Needle needle_;
    TextMatcher matcher_;
    std::vector<std::uint32_t> exact_; // keywords that are the query
    const LearnedItems::InList& learned_;
    std::vector<std::uint32_t> bound_; // items that ran last for the query
};

} // namespace pello
