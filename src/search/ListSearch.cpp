// What a text must score to matter follows from the rows kept so far: a row needs their threshold,
// or more. Tests are against a little less than that, so that the rounding of a bound never costs a
// row; nothing is left out for being equal, as ties are decided otherwise.

#include "search/ListSearch.h"

#include "search/ItemMatch.h"
#include "search/MatchScore.h"

#include <algorithm>
#include <limits>

namespace pello {
namespace {

constexpr double kSlack = 1e-6;
constexpr double kAnyScore = -std::numeric_limits<double>::infinity();

/// What a keyword or combined text must score by itself to count `needed`.
double neededAside(double needed) {
    return needed / MatchScore::kKeywordFactor - kSlack;
}

} // namespace

ListSearch::ListSearch(const PreparedList& list, std::uint32_t index, SearchState& state)
    : list_(list),
      index_(index),
      state_(state),
      needle_(state.query.needle, list.codes()),
      matcher_(needle_, state.bound, state.scores, state.work),
      exact_(list.keywords().exactly(state.query)),
      learned_(state.learned.in(list)) {
    if (const std::string* bound = state.usage.boundItem(state.query.trimmed)) {
        list.ids().find(*bound, list.items(), [&](std::uint32_t item) { bound_.push_back(item); });
    }
}

void ListSearch::searchLearned(KeptRows& rows) {
    const auto isBound = [&](std::uint32_t item) {
        return std::find(bound_.begin(), bound_.end(), item) != bound_.end();
    };
    for (const std::uint32_t item : bound_) {
        if (const auto row = rowOf(item)) {
            rows.offer(*row);
        }
    }
    double most = state_.bound.byLength(needle_.size());
    if (!exact_.empty()) {
        most = std::max(most, MatchScore::kExactKeyword);
    }
    for (const LearnedItems::Item& item : learned_.items) {
        const double needed = rows.threshold() - item.boostCeiling - kSlack;
        if (most < needed) {
            return;
        }
        const bool mayMatch =
            !exact_.empty() ||
            LearnedItems::mayMatch(learned_, item, needle_.mask, state_.query.allowsCombined);
        if (!mayMatch || isBound(item.index)) {
            continue;
        }
        if (const auto found = score(item.index, needed)) {
            rows.offer({.score = found->value + state_.usage.boostParts(*item.record).sum(),
                        .list = index_,
                        .item = item.index,
                        .isByTitle = found->isByTitle});
        }
    }
}

void ListSearch::searchExact(KeptRows& rows) {
    for (const std::uint32_t keyword : exact_) {
        offerItems(
            keyword, MatchScore::kExactKeyword, [&](std::uint32_t item) { return isLearned(item); },
            rows);
    }
}

void ListSearch::searchTitles(KeptRows& rows) {
    matcher_.scan(
        list_.titles(), [&] { return rows.threshold() - kSlack; },
        [&](std::uint32_t item) { return isJudgedElsewhere(item); },
        [&](std::uint32_t item, double score) {
            rows.offer({.score = score, .list = index_, .item = item, .isByTitle = true});
        });
}

void ListSearch::searchKeywords(KeptRows& rows) {
    const auto skips = [&](std::uint32_t item) { return isJudgedElsewhere(item); };
    matcher_.scan(
        list_.keywords().texts(), [&] { return neededAside(rows.threshold()); },
        [](std::uint32_t) { return false; },
        [&](std::uint32_t keyword, double score) {
            offerItems(keyword, score * MatchScore::kKeywordFactor, skips, rows);
        });
}

void ListSearch::searchCombined(KeptRows& rows) {
    matcher_.scan(
        list_.combined(), [&] { return neededAside(rows.threshold()); },
        [&](std::uint32_t item) { return isJudgedElsewhere(item) || matchesApart(item); },
        [&](std::uint32_t item, double score) {
            rows.offer({.score = score * MatchScore::kKeywordFactor,
                        .list = index_,
                        .item = item,
                        .isByTitle = false});
        });
}

std::optional<ScoredRow> ListSearch::rowOf(std::uint32_t item) {
    const auto found = score(item, kAnyScore);
    if (!found) {
        return std::nullopt;
    }
    const double boost = state_.usage.boost(list_.items()[item].id, state_.query.trimmed);
    return ScoredRow{
        .score = found->value + boost, .list = index_, .item = item, .isByTitle = found->isByTitle};
}

std::vector<int> ListSearch::titleMatches(std::uint32_t item) {
    if (needle_.size() == 0) {
        return {};
    }
    const std::uint32_t slot = list_.titles().slotOf(item);
    auto positions = matcher_.positions(list_.titles(), slot);
    if (list_.titles().hasCodes(slot)) { // in lower case it may have more characters
        return withinTitle(std::move(positions), list_.items()[item].title);
    }
    return positions;
}

std::optional<ListSearch::Score> ListSearch::score(std::uint32_t item, double needed) {
    if (isExact(item)) {
        return Score{.value = MatchScore::kExactKeyword, .isByTitle = false};
    }
    if (needle_.size() == 0) {
        return Score{.value = 0, .isByTitle = true};
    }
    std::optional<Score> best;
    const TextTable& titles = list_.titles();
    if (const auto value = matcher_.score(titles, titles.slotOf(item), needed)) {
        best = Score{.value = *value, .isByTitle = true};
    }
    const double most = state_.bound.byLength(needle_.size());
    if (most < neededAside(best ? std::max(best->value, needed) : needed)) {
        return best;
    }
    const TextTable& texts = list_.keywords().texts();
    for (const std::uint32_t keyword : list_.keywords().keywordsOf(item)) {
        const double least = best ? std::max(best->value, needed) : needed;
        const auto value = matcher_.score(texts, texts.slotOf(keyword), neededAside(least));
        if (value && (!best || *value * MatchScore::kKeywordFactor > best->value)) {
            best = Score{.value = *value * MatchScore::kKeywordFactor, .isByTitle = false};
        }
    }
    const TextTable& combined = list_.combined();
    if (!best && state_.query.allowsCombined) {
        const auto value = matcher_.score(combined, combined.slotOf(item), neededAside(needed));
        if (value && !matchesApart(item)) {
            best = Score{.value = *value * MatchScore::kKeywordFactor, .isByTitle = false};
        }
    }
    return best;
}

/// Whether the title or a keyword matches by itself, which rules the combined text out.
bool ListSearch::matchesApart(std::uint32_t item) const {
    if (matcher_.contains(list_.titles(), list_.titles().slotOf(item))) {
        return true;
    }
    const TextTable& texts = list_.keywords().texts();
    const auto keywords = list_.keywords().keywordsOf(item);
    return std::any_of(keywords.begin(), keywords.end(), [&](std::uint32_t keyword) {
        return matcher_.contains(texts, texts.slotOf(keyword));
    });
}

/// Offers the items that the keyword gives `score`.
template <class Skips>
void ListSearch::offerItems(std::uint32_t keyword, double score, Skips skips, KeptRows& rows) {
    const auto items = list_.keywords().itemsOf(keyword);
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (skips(items[i])) {
            continue;
        }
        const bool isAccepted =
            rows.offer({.score = score, .list = index_, .item = items[i], .isByTitle = false});
        if (!isAccepted && i < KeywordIndex::kOrdered) {
            return; // all others stand behind it
        }
    }
}

bool ListSearch::isLearned(std::uint32_t item) const {
    return std::binary_search(learned_.indices.begin(), learned_.indices.end(), item) ||
           std::find(bound_.begin(), bound_.end(), item) != bound_.end();
}

bool ListSearch::isExact(std::uint32_t item) const {
    if (exact_.empty()) {
        return false;
    }
    const auto keywords = list_.keywords().keywordsOf(item);
    return std::find_first_of(keywords.begin(), keywords.end(), exact_.begin(), exact_.end()) !=
           keywords.end();
}

} // namespace pello
