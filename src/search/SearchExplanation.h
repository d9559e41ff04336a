#pragma once

#include "core/items/SearchResult.h"
#include "search/ItemMatch.h"
#include "search/UsageStore.h"

#include <optional>
#include <string>

namespace pello {

/// A row of the results, and what made its place.
struct SearchExplanation {
    SearchResult result;

    enum class Origin {
        match,       ///< a text of the item matched: see `match`
        quickAction, ///< made from the query and merged at its fixed place
        learned      ///< nothing was typed: shown for its boost alone
    };
    Origin origin = Origin::match;

    /// The text that matched and its score, before the boost.
    std::optional<ItemMatch> match;
    /// What was learned about the item.
    UsageStore::Boost boost;
    /// Of two equal scores the higher priority is first.
    int kindPriority = 0;

    /// What put this row after the one above.
    enum class OrderedBy {
        score,    ///< a lower score, or there is no row above
        kind,     ///< the same score and a lower kind priority
        name,     ///< the same kind priority, too, and a later title in the locale's order
        catalogue ///< an equal title, too (learned rows: the same boost): a later place there
    };
    OrderedBy orderedBy = OrderedBy::score;
};

/// The result's `Origin` and the matched text in words, for a listing: "title", "keyword",
/// "exact keyword", "combined", "quick action", "learned".
[[nodiscard]] std::string_view originName(const SearchExplanation& explanation);

/// "score", "kind", "name" or "catalogue".
[[nodiscard]] std::string_view orderName(SearchExplanation::OrderedBy order);

} // namespace pello
