#pragma once

#include "core/items/LaunchItem.h"
#include "core/items/SearchResult.h"
#include "search/PreparedList.h"
#include "search/UsageStore.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The search as it is defined, done the plain way: every text split and scored anew for every item
/// and every keystroke, in real numbers, with both tables. What the engine must agree with to the
/// bit, and what its speed is measured against. Shares only the text functions, the collation and
/// the usage store with it, which have tests of their own.
namespace pello::testing::NaiveSearch {

struct Match {
    double score = 0;
    std::vector<int> positions;
};

/// Whether texts of single bytes are matched as bytes, without a string for each character.
enum class Shortcut { none, ascii };

[[nodiscard]] std::optional<Match> match(const std::vector<std::string>& query,
                                         std::string_view candidate,
                                         Shortcut shortcut = Shortcut::none);

[[nodiscard]] std::vector<SearchResult> results(std::string_view query, const Catalogue& catalogue,
                                                std::span<const LaunchItemRef> quickActions,
                                                const UsageStore& usage, std::ptrdiff_t limit,
                                                Shortcut shortcut = Shortcut::none);

} // namespace pello::testing::NaiveSearch
