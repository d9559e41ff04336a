#pragma once

#include "core/items/LaunchItem.h"

#include <memory>
#include <string>
#include <vector>

namespace pello {

/// An item of a list that somebody published, shared and never copied: it keeps the whole list
/// alive.
using LaunchItemRef = std::shared_ptr<const LaunchItem>;

/// One ranked hit.
struct SearchResult {
    /// Never null.
    LaunchItemRef item;
    /// Higher is better.
    double score = 0;
    /// Character positions in the item's title that the query matched, ascending. Empty when it
    /// matched otherwise.
    std::vector<int> titleMatches;

    /// The hit's identity is its item's.
    [[nodiscard]] const std::string& id() const { return item->id; }

    /// The same hit of the same published list, ranked and matched alike.
    friend bool operator==(const SearchResult&, const SearchResult&) = default;
};

} // namespace pello
