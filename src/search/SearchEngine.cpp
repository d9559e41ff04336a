#include "search/SearchEngine.h"

#include "search/LearnedItems.h"
#include "search/MatchScore.h"
#include "search/RankedSearch.h"

#include <algorithm>

namespace pello::SearchEngine {
namespace {

using Rows = std::vector<SearchResult>;

std::size_t count(std::ptrdiff_t limit) {
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(limit, 0));
}

Rows recentlyUsed(const Catalogue& catalogue, const UsageStore& usage, std::ptrdiff_t limit) {
    Rows rows;
    LearnedItems& learned = usage.learnedItems();
    for (const auto& list : catalogue) {
        for (const std::uint32_t i : learned.in(*list).indices) {
            const double boost = usage.boost(list->items()[i].id, "");
            if (boost > 0) {
                rows.push_back({.item = list->ref(i), .score = boost, .titleMatches = {}});
            }
        }
    }
    std::stable_sort(rows.begin(), rows.end(), [](const SearchResult& a, const SearchResult& b) {
        return a.score > b.score;
    });
    rows.resize(std::min(rows.size(), count(limit)));
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
