#include "search/SearchEngine.h"

#include "search/LearnedItems.h"
#include "search/MatchScore.h"
#include "search/RankedSearch.h"

#include <algorithm>
#include <tuple>

namespace pello::SearchEngine {
namespace {

using Rows = std::vector<SearchResult>;

std::size_t count(std::ptrdiff_t limit) {
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(limit, 0));
}

bool wasUsedMore(const ScoredRow& left, const ScoredRow& right) {
    if (left.score != right.score) {
        return left.score > right.score;
    }
    return std::tie(left.list, left.item) < std::tie(right.list, right.item);
}

Rows recentlyUsed(const Catalogue& catalogue, const UsageStore& usage, std::ptrdiff_t limit) {
    std::vector<ScoredRow> used;
    LearnedItems& learned = usage.learnedItems();
    for (std::uint32_t list = 0; list < catalogue.size(); ++list) {
        for (const std::uint32_t item : learned.in(*catalogue[list]).indices) {
            const double boost = usage.boost(catalogue[list]->items()[item].id, "");
            if (boost > 0) {
                used.push_back({.score = boost, .list = list, .item = item, .isByTitle = false});
            }
        }
    }
    std::sort(used.begin(), used.end(), wasUsedMore);
    used.resize(std::min(used.size(), count(limit)));
    Rows rows;
    rows.reserve(used.size());
    for (const ScoredRow& row : used) {
        rows.push_back(
            {.item = catalogue[row.list]->ref(row.item), .score = row.score, .titleMatches = {}});
    }
    return rows;
}

void merge(Rows& rows, const LaunchItemRef& action) {
    switch (action->kind) {
    case LaunchItem::Kind::calculation:
    case LaunchItem::Kind::bang:
    case LaunchItem::Kind::script:
        rows.insert(rows.begin(), {.item = action, .score = MatchScore::kTop, .titleMatches = {}});
        break;
    case LaunchItem::Kind::url:
        rows.insert(rows.begin() + (rows.empty() ? 0 : 1),
                    {.item = action, .score = 0, .titleMatches = {}});
        break;
    default:
        rows.push_back({.item = action, .score = 0, .titleMatches = {}});
    }
}

} // namespace

std::vector<SearchResult> results(std::string_view query, const Catalogue& catalogue,
                                  std::span<const LaunchItemRef> quickActions,
                                  const UsageStore& usage, std::ptrdiff_t limit, SearchWork* work) {
    const SearchQuery prepared(query);
    if (prepared.isBlank()) {
        return recentlyUsed(catalogue, usage, limit);
    }
    RankedSearch search(prepared, catalogue, usage);
    Rows rows = search.rows(count(limit));
    if (work != nullptr) {
        *work = search.work();
    }
    for (const LaunchItemRef& action : quickActions) {
        merge(rows, action);
    }
    return rows;
}

} // namespace pello::SearchEngine
