#include "search/RankedSearch.h"

#include "search/RowOrder.h"

#include <algorithm>

namespace pello {
namespace {

/// Longer lists are made by scoring everything: little could be left out.
constexpr std::size_t kLongLimit = 512;

} // namespace

RankedSearch::RankedSearch(const SearchQuery& query, const Catalogue& catalogue,
                           const UsageStore& usage)
    : catalogue_(catalogue),
      state_{.query = query,
             .usage = usage,
             .learned = usage.learnedItems(),
             .bound = ScoreBound(query.needle),
             .scores = {},
             .work = {}} {
    for (std::uint32_t i = 0; i < catalogue.size(); ++i) {
        lists_.emplace_back(*catalogue[i], i, state_);
    }
}

std::vector<SearchResult> RankedSearch::rows(std::size_t limit) {
    if (limit == 0) {
        return {};
    }
    return limit > kLongLimit || state_.query.needle.empty() ? all(limit) : best(limit);
}

SearchWork RankedSearch::work() const {
    SearchWork work = state_.work;
    work.tablesFilled = state_.scores.filledCount();
    return work;
}

/// Step by step through all lists: what one list brings spares the others work.
std::vector<SearchResult> RankedSearch::best(std::size_t limit) {
    KeptRows kept(catalogue_, limit, state_.work);
    const auto inEachList = [&](void (ListSearch::*step)(KeptRows&)) {
        for (ListSearch& list : lists_) {
            (list.*step)(kept);
        }
    };
    inEachList(&ListSearch::searchLearned);
    inEachList(&ListSearch::searchExact);
    inEachList(&ListSearch::searchTitles);
    inEachList(&ListSearch::searchKeywords);
    if (state_.query.allowsCombined) {
        inEachList(&ListSearch::searchCombined);
    }
    std::vector<SearchResult> results;
    results.reserve(kept.rows().size());
    for (const ScoredRow& row : kept.rows()) {
        results.push_back(result(row));
    }
    return results;
}

std::vector<SearchResult> RankedSearch::all(std::size_t limit) {
    std::vector<ScoredRow> rows;
    for (std::uint32_t list = 0; list < catalogue_.size(); ++list) {
        for (std::uint32_t item = 0; item < catalogue_[list]->items().size(); ++item) {
            if (const auto row = lists_[list].rowOf(item)) {
                rows.push_back(*row);
            }
        }
    }
    const auto kept = static_cast<std::ptrdiff_t>(std::min(limit, rows.size()));
    std::partial_sort(rows.begin(), rows.begin() + kept, rows.end(),
                      RowOrder(catalogue_, state_.work));
    std::vector<SearchResult> results;
    results.reserve(static_cast<std::size_t>(kept));
    std::transform(rows.begin(), rows.begin() + kept, std::back_inserter(results),
                   [this](const ScoredRow& row) { return result(row); });
    return results;
}

SearchResult RankedSearch::result(const ScoredRow& row) {
    return {.item = catalogue_[row.list]->ref(row.item),
            .score = row.score,
            .titleMatches =
                row.isByTitle ? lists_[row.list].titleMatches(row.item) : std::vector<int>{}};
}

} // namespace pello
