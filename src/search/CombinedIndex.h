#pragma once

#include "core/items/LaunchItem.h"
#include "search/KeywordIndex.h"
#include "search/TextTable.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pello {

/// Title and keywords of each item as one text, without the text: which characters it has and how
/// long it is. Items without keywords are not in it.
class CombinedIndex {
public:
    CombinedIndex(std::span<const LaunchItem> items, const TextTable& titles,
                  const KeywordIndex& keywords);

    /// One item's combined text.
    struct Entry {
        std::uint32_t item;
        std::uint32_t length;
    };

    /// By length, short ones first; the masks at the same index.
    [[nodiscard]] std::span<const Entry> entries() const { return entries_; }
    [[nodiscard]] std::span<const std::uint64_t> masks() const { return masks_; }

    /// Items whose joined text has other characters than its parts, because one of them begins
    /// with a mark or ends with a prefix, or lower-cases to more characters than it has. Ascending.
    [[nodiscard]] std::span<const std::uint32_t> irregular() const { return irregular_; }

    /// Bytes held outside of the object.
    [[nodiscard]] std::size_t footprint() const;

private:
    std::vector<Entry> entries_;
    std::vector<std::uint64_t> masks_;
    std::vector<std::uint32_t> irregular_;
};

} // namespace pello
