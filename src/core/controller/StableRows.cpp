#include "core/controller/StableRows.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace pello {
namespace {

/// Takes the last `count` rows away that a source gave. What was made of the query has a fixed
/// place, and no limit counts it.
void dropLast(std::vector<SearchResult>& rows, std::size_t count) {
    for (auto row = rows.end(); count > 0 && row != rows.begin();) {
        --row;
        if (!row->item->isEphemeral) {
            row = rows.erase(row);
            --count;
        }
    }
}

} // namespace

std::vector<SearchResult> stableRows(std::span<const SearchResult> shown, int selection,
                                     std::vector<SearchResult> found,
                                     const std::function<bool(const LaunchItem&)>& exists) {
    const auto kept = std::min(shown.size(), static_cast<std::size_t>(selection) + 1);
    std::vector<SearchResult> rows;
    rows.reserve(std::max(found.size(), kept));
    std::size_t lost = 0; // rows of `found` that give way
    for (const SearchResult& row : shown.first(kept)) {
        const auto again = std::ranges::find(found, row.id(), &SearchResult::id);
        if (again != found.end()) {
            rows.push_back(std::move(*again));
            found.erase(again);
        } else if (exists(*row.item)) {
            rows.push_back(row);
            ++lost;
        }
    }
    dropLast(found, lost);
    std::ranges::move(found, std::back_inserter(rows));
    return rows;
}

} // namespace pello
