#pragma once

#include "core/items/SearchResult.h"
#include "search/PreparedList.h"
#include "search/SearchExplanation.h"
#include "search/SearchWork.h"
#include "search/UsageStore.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

/// Turns a query into the ordered list of hits that the panel shows. Main thread only.
namespace pello::SearchEngine {

/// The hits for `query` as typed, best first: at most `limit` items of the catalogue, merged with
/// all `quickActions`. A blank query gives the most used items and no quick actions. A negative
/// limit counts as 0. Tells in `work`, if given, what a search for a query took.
[[nodiscard]] std::vector<SearchResult> results(std::string_view query, const Catalogue& catalogue,
                                                std::span<const LaunchItemRef> quickActions,
                                                const UsageStore& usage, std::ptrdiff_t limit,
                                                SearchWork* work = nullptr);

/// The rows of `results`, each with what made its place.
[[nodiscard]] std::vector<SearchExplanation> explain(std::string_view query,
                                                     const Catalogue& catalogue,
                                                     std::span<const LaunchItemRef> quickActions,
                                                     const UsageStore& usage, std::ptrdiff_t limit);

} // namespace pello::SearchEngine
