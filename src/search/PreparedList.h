#pragma once

#include "core/items/LaunchItem.h"
#include "core/items/SearchResult.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace pello {

/// The items of one source, with their texts prepared for matching.
///
/// Made once, on the background thread that scanned the source; immutable and shared afterwards, so
/// any thread may read it.
class PreparedList : public std::enable_shared_from_this<PreparedList> {
public:
    /// Prepares `items`, which keep their order.
    [[nodiscard]] static std::shared_ptr<const PreparedList> make(std::vector<LaunchItem> items);

    [[nodiscard]] std::span<const LaunchItem> items() const { return items_; }

    /// The item at `index`, sharing the ownership of this list.
    [[nodiscard]] LaunchItemRef ref(std::size_t index) const;

private:
    explicit PreparedList(std::vector<LaunchItem> items);

    std::vector<LaunchItem> items_;
};

/// The lists of all sources that take part in a search, in catalogue order. Never null entries.
using Catalogue = std::vector<std::shared_ptr<const PreparedList>>;

} // namespace pello
