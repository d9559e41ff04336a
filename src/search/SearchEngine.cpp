#include "search/SearchEngine.h"

#include "search/ItemMatch.h"
#include "search/MatchScore.h"
#include "search/TieOrder.h"

#include <algorithm>

namespace pello::SearchEngine {
namespace {

using Rows = std::vector<SearchResult>;

void keepFirst(Rows& rows, std::ptrdiff_t limit) {
    const auto kept = static_cast<std::size_t>(std::max<std::ptrdiff_t>(limit, 0));
    rows.resize(std::min(rows.size(), kept));
}

template <class Visit>
void forEachItem(const Catalogue& catalogue, Visit visit) {
    for (const auto& list : catalogue) {
        for (std::size_t i = 0; i < list->items().size(); ++i) {
            visit(*list, i);
        }
    }
}

Rows recentlyUsed(const Catalogue& catalogue, const UsageStore& usage, std::ptrdiff_t limit) {
    Rows rows;
    forEachItem(catalogue, [&](const PreparedList& list, std::size_t i) {
        const double boost = usage.boost(list.items()[i].id, "");
        if (boost > 0) {
            rows.push_back({.item = list.ref(i), .score = boost, .titleMatches = {}});
        }
    });
    std::stable_sort(rows.begin(), rows.end(), [](const SearchResult& a, const SearchResult& b) {
        return a.score > b.score;
    });
    keepFirst(rows, limit);
    return rows;
}

Rows ranked(const SearchQuery& query, const Catalogue& catalogue, const UsageStore& usage,
            std::ptrdiff_t limit) {
    Rows rows;
    forEachItem(catalogue, [&](const PreparedList& list, std::size_t i) {
        const LaunchItem& item = list.items()[i];
        if (auto match = matchItem(item, query)) {
            rows.push_back({.item = list.ref(i),
                            .score = match->score + usage.boost(item.id, query.trimmed),
                            .titleMatches = std::move(match->titleMatches)});
        }
    });
    std::stable_sort(rows.begin(), rows.end(), [](const SearchResult& a, const SearchResult& b) {
        return a.score != b.score ? a.score > b.score : TieOrder::compare(*a.item, *b.item) < 0;
    });
    keepFirst(rows, limit);
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
                                  const UsageStore& usage, std::ptrdiff_t limit) {
    const SearchQuery prepared(query);
    if (prepared.isBlank()) {
        return recentlyUsed(catalogue, usage, limit);
    }
    Rows rows = ranked(prepared, catalogue, usage, limit);
    for (const LaunchItemRef& action : quickActions) {
        merge(rows, action);
    }
    return rows;
}

} // namespace pello::SearchEngine
