// What a text must score to matter follows from the rows kept so far: a row needs their threshold,
// or more. Tests are against a little less than that, so that the rounding of a bound never costs a
// row; nothing is left out for being equal, as ties are decided otherwise.

#include "search/ListSearch.h"

#include "base/Text.h"
#include "search/FuzzyMatcher.h"
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
      combined_(list, needle_, state.bound, matcher_, state.scores),
      exact_(list.keywords().exactly(state.query.needle)),
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
    const double most = std::max(state_.bound.byLength(needle_.size()), MatchScore::kExactKeyword);
    for (const LearnedItems::Item& item : learned_.items) {
        const double needed = rows.threshold() - item.boostCeiling - kSlack;
        if (most < needed) {
            return;
        }
        const bool mayMatch = !exact_.empty() || PresenceMask::mayContain(item.mask, needle_.mask);
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
    const auto offer = [&](std::uint32_t item, double score) {
        rows.offer({.score = score * MatchScore::kKeywordFactor,
                    .list = index_,
                    .item = item,
                    .isByTitle = false});
    };
    const auto entries = list_.combined().entries();
    const auto masks = list_.combined().masks();
    for (std::size_t i = 0; i < entries.size() && !needle_.isAbsent; ++i) {
        if (!PresenceMask::mayContain(masks[i], needle_.mask) ||
            entries[i].length < needle_.size()) {
            continue;
        }
        const double needed = neededAside(rows.threshold());
        if (state_.bound.byLength(entries[i].length) < needed) {
            break; // longer ones score no better
        }
        ++state_.work.textsTried;
        const std::uint32_t item = entries[i].item;
        const auto score = combined_.score(item, entries[i].length, needed);
        if (score && !isJudgedElsewhere(item)) {
            offer(item, *score);
        }
    }
    for (const std::uint32_t item : list_.combined().irregular()) {
        const auto score = irregularScore(item);
        if (score && !isJudgedElsewhere(item)) {
            offer(item, *score);
        }
    }
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
        const std::size_t count = text::characterCount(list_.items()[item].title);
        std::erase_if(positions, [&](int p) { return static_cast<std::size_t>(p) >= count; });
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
    const TextTable& texts = list_.keywords().texts();
    for (const std::uint32_t keyword : list_.keywords().keywordsOf(item)) {
        const double least = best ? std::max(best->value, needed) : needed;
        const auto value = matcher_.score(texts, texts.slotOf(keyword), neededAside(least));
        if (value && (!best || *value * MatchScore::kKeywordFactor > best->value)) {
            best = Score{.value = *value * MatchScore::kKeywordFactor, .isByTitle = false};
        }
    }
    if (!best && state_.query.allowsCombined) {
        if (const auto value = combinedScore(item, neededAside(needed))) {
            best = Score{.value = *value * MatchScore::kKeywordFactor, .isByTitle = false};
        }
    }
    return best;
}

std::optional<double> ListSearch::combinedScore(std::uint32_t item, double needed) {
    const auto irregular = list_.combined().irregular();
    if (std::binary_search(irregular.begin(), irregular.end(), item)) {
        return irregularScore(item);
    }
    const auto keywords = list_.keywords().keywordsOf(item);
    const TextTable& texts = list_.keywords().texts();
    std::size_t length = list_.titles().length(list_.titles().slotOf(item));
    for (const std::uint32_t keyword : keywords) {
        length += 1 + texts.length(texts.slotOf(keyword));
    }
    return keywords.empty() ? std::nullopt : combined_.score(item, length, needed);
}

std::optional<double> ListSearch::irregularScore(std::uint32_t item) const {
    if (combined_.matchesApart(item)) {
        return std::nullopt;
    }
    const auto match = FuzzyMatcher::match(state_.query.needle, combinedText(list_.items()[item]));
    return match ? std::optional(match->score) : std::nullopt;
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
