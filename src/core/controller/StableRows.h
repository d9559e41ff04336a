#pragma once

#include "core/items/SearchResult.h"

#include <functional>
#include <span>
#include <vector>

namespace pello {

/// `found`, arranged so that a reader of `shown` keeps the place: the rows down to `selection` stay
/// where they are, and what is new stands below. Nobody then runs a row that slipped in just as
/// Return was pressed.
///
/// Of a row in both lists the found one is shown. A row that was not found again stays while
/// `exists` says that its item is still there, and one row of the others makes room for it.
[[nodiscard]] std::vector<SearchResult>
stableRows(std::span<const SearchResult> shown, int selection, std::vector<SearchResult> found,
           const std::function<bool(const LaunchItem&)>& exists);

} // namespace pello
