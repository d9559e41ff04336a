#pragma once

#include "base/Date.h"
#include "search/PreparedList.h"
#include "search/UsageStore.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace pello {

/// Where the items that a usage store knows stand in the published lists.
///
/// A memo: looked up when a list is first searched, and again when the learned data changed. Lists
/// are not kept alive by it, and forgotten when they are gone. Main thread only.
class LearnedItems {
public:
    struct Item {
        std::uint32_t index;
        const UsageStore::Record* record;
        /// The boost without a binding is never more than this.
        double boostCeiling;
        /// The presence masks of title and keywords, in `InList::masks`.
        std::uint32_t firstMask;
        std::uint32_t endMask;
        /// That of the combined text.
        std::uint64_t combinedMask;
    };
    struct InList {
        /// The highest ceiling first.
        std::vector<Item> items;
        std::vector<std::uint64_t> masks;
        /// Their indices, ascending.
        std::vector<std::uint32_t> indices;
    };

    /// Whether a text of the item can contain a query with these presence bits, the combined text
    /// only if it counts.
    [[nodiscard]] static bool mayMatch(const InList& list, const Item& item, std::uint64_t query,
                                       bool allowsCombined);

    /// `usage` must outlive this.
    explicit LearnedItems(const UsageStore& usage) : usage_(usage) {}

    /// Takes notice of changes. To be called once before each search.
    void update();

    /// The learned items of `list`, valid until the next `update`.
    [[nodiscard]] const InList& in(const PreparedList& list);

private:
    struct Known {
        std::weak_ptr<const PreparedList> list;
        InList items;
    };

    [[nodiscard]] InList find(const PreparedList& list) const;
    [[nodiscard]] double boostCeiling(const UsageStore::Record& record) const;

    const UsageStore& usage_;
    std::uint64_t revision_ = 0;
    Date asOf_; // the last search
    std::unordered_map<const PreparedList*, Known> known_;
};

} // namespace pello
