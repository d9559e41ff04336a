#pragma once

#include "core/items/LaunchItem.h"
#include "core/items/SearchResult.h"
#include "search/CharacterCodes.h"
#include "search/IdTable.h"
#include "search/KeywordIndex.h"
#include "search/TextTable.h"

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

    // What the search reads.

    /// The characters that all texts of the list are made of.
    [[nodiscard]] const CharacterCodes& codes() const { return codes_; }
    /// The titles, numbered as the items.
    [[nodiscard]] const TextTable& titles() const { return titles_; }
    [[nodiscard]] const KeywordIndex& keywords() const { return keywords_; }
    /// Title and keywords joined by spaces, numbered as the items; empty for items without
    /// keywords.
    [[nodiscard]] const TextTable& combined() const { return combined_; }
    [[nodiscard]] const IdTable& ids() const { return ids_; }

    /// Bytes that the list holds beyond the items themselves.
    [[nodiscard]] std::size_t footprint() const;

private:
    explicit PreparedList(std::vector<LaunchItem> items);

    std::vector<LaunchItem> items_;
    CharacterCodes codes_; // before the texts, which add to it
    TextTable titles_;
    KeywordIndex keywords_;
    TextTable combined_;
    IdTable ids_;
};

/// The lists of all sources that take part in a search, in catalogue order. Never null entries.
using Catalogue = std::vector<std::shared_ptr<const PreparedList>>;

} // namespace pello
