#pragma once

#include "core/items/LaunchItem.h"
#include "search/SearchQuery.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// How one item matches a query, and which of its texts decided.
///
/// Found the plain way, text by text; for one item at a time. The search over whole lists
/// (SearchEngine) comes to the same scores.
struct ItemMatch {
    enum class Text { title, keyword, exactKeyword, combined };

    Text matched = Text::title;
    /// The text that decided, as written.
    std::string text;
    double score = 0;
    /// Matched characters of the title; empty unless the title decided.
    std::vector<int> titleMatches;
};

/// The match of `item`, or nothing.
[[nodiscard]] std::optional<ItemMatch> matchItem(const LaunchItem& item, const SearchQuery& query);

/// The positions that lie within `title`: in lower case it can have more characters.
[[nodiscard]] std::vector<int> withinTitle(std::vector<int> positions, std::string_view title);

/// Title and keywords, joined by single spaces.
[[nodiscard]] std::string combinedText(const LaunchItem& item);

} // namespace pello
