#pragma once

#include "core/items/SearchResult.h"
#include "search/ListSearch.h"
#include "search/PreparedList.h"
#include "search/SearchQuery.h"
#include "search/SearchWork.h"
#include "search/UsageStore.h"

#include <cstddef>
#include <deque>
#include <vector>

namespace pello {

/// The items of a catalogue that match a query, ranked. One object for one search; borrows
/// everything.
class RankedSearch {
public:
    RankedSearch(const SearchQuery& query, const Catalogue& catalogue, const UsageStore& usage);

    /// The first `limit` rows.
    [[nodiscard]] std::vector<SearchResult> rows(std::size_t limit);

    /// What was done so far.
    [[nodiscard]] SearchWork work() const;

private:
    [[nodiscard]] std::vector<SearchResult> best(std::size_t limit);
    [[nodiscard]] std::vector<SearchResult> all(std::size_t limit);
    [[nodiscard]] SearchResult result(const ScoredRow& row);

    const Catalogue& catalogue_;
    SearchState state_;
    std::deque<ListSearch> lists_;
};

} // namespace pello
