#include "search/SearchExplanation.h"

#include "search/SearchEngine.h"
#include "search/TieOrder.h"

#include <algorithm>

namespace pello {
namespace {

SearchExplanation explained(SearchResult row, const SearchQuery& query, const UsageStore& usage,
                            SearchExplanation::Origin origin) {
    SearchExplanation explanation;
    explanation.kindPriority = TieOrder::kindPriority(row.item->kind);
    explanation.origin = origin;
    if (origin != SearchExplanation::Origin::quickAction) {
        explanation.boost = usage.boostParts(row.id(), query.trimmed);
    }
    if (origin == SearchExplanation::Origin::match) {
        explanation.match = matchItem(*row.item, query);
    }
    explanation.result = std::move(row);
    return explanation;
}

/// What decided between two rows that the catalogue gave, one below the other.
SearchExplanation::OrderedBy decision(const SearchExplanation& above,
                                      const SearchExplanation& row) {
    using OrderedBy = SearchExplanation::OrderedBy;
    if (above.origin != row.origin || above.result.score != row.result.score) {
        return OrderedBy::score;
    }
    if (row.origin == SearchExplanation::Origin::learned) {
        return OrderedBy::catalogue;
    }
    const LaunchItem& first = *above.result.item;
    const LaunchItem& second = *row.result.item;
    if (TieOrder::isDecidedByKind(first, second)) {
        return OrderedBy::kind;
    }
    return TieOrder::compare(first, second) != 0 ? OrderedBy::name : OrderedBy::catalogue;
}

} // namespace

std::string_view orderName(SearchExplanation::OrderedBy order) {
    switch (order) {
    case SearchExplanation::OrderedBy::score:
        return "score";
    case SearchExplanation::OrderedBy::kind:
        return "kind";
    case SearchExplanation::OrderedBy::name:
        return "name";
    case SearchExplanation::OrderedBy::catalogue:
        return "catalogue";
    }
    return "score";
}

std::string_view originName(const SearchExplanation& explanation) {
    switch (explanation.origin) {
    case SearchExplanation::Origin::quickAction:
        return "quick action";
    case SearchExplanation::Origin::learned:
        return "learned";
    case SearchExplanation::Origin::match:
        break;
    }
    switch (explanation.match ? explanation.match->matched : ItemMatch::Text::title) {
    case ItemMatch::Text::title:
        return "title";
    case ItemMatch::Text::keyword:
        return "keyword";
    case ItemMatch::Text::exactKeyword:
        return "exact keyword";
    case ItemMatch::Text::combined:
        return "combined";
    }
    return "title";
}

std::vector<SearchExplanation> SearchEngine::explain(std::string_view query,
                                                     const Catalogue& catalogue,
                                                     std::span<const LaunchItemRef> quickActions,
                                                     const UsageStore& usage,
                                                     std::ptrdiff_t limit) {
    const SearchQuery prepared(query);
    const auto origin = [&](const SearchResult& row) {
        if (prepared.isBlank()) {
            return SearchExplanation::Origin::learned;
        }
        const bool isAction =
            std::find(quickActions.begin(), quickActions.end(), row.item) != quickActions.end();
        return isAction ? SearchExplanation::Origin::quickAction : SearchExplanation::Origin::match;
    };
    std::vector<SearchExplanation> explanations;
    for (SearchResult& row : results(query, catalogue, quickActions, usage, limit)) {
        const auto from = origin(row);
        auto next = explained(std::move(row), prepared, usage, from);
        if (!explanations.empty() && from != SearchExplanation::Origin::quickAction) {
            next.orderedBy = decision(explanations.back(), next);
        }
        explanations.push_back(std::move(next));
    }
    return explanations;
}

} // namespace pello
