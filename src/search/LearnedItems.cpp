// Learned items are few, and the only ones with a boost. Judged on their own they leave a search of
// all others that needs no boost, and they come first, because they raise what the others have to
// reach.
//
// A boost only decays while time goes on, so one computed earlier is an upper bound until the clock
// is set back. The bound has a margin for the rounding of two computations; an item used in the
// future has no bound at all. Whoever gets past it is given the exact boost.

#include "search/LearnedItems.h"

#include "search/PresenceMask.h"

#include <algorithm>
#include <limits>
#include <span>

namespace pello {

bool LearnedItems::mayMatch(const InList& list, const Item& item, std::uint64_t query,
                            bool allowsCombined) {
    const auto masks = std::span(list.masks).subspan(item.firstMask, item.endMask - item.firstMask);
    return std::any_of(masks.begin(), masks.end(),
                       [&](std::uint64_t mask) { return PresenceMask::mayContain(mask, query); }) ||
           (allowsCombined && PresenceMask::mayContain(item.combinedMask, query));
}

void LearnedItems::update() {
    const Date now = usage_.now();
    if (revision_ != usage_.revision() || now < asOf_) {
        known_.clear();
        revision_ = usage_.revision();
    }
    asOf_ = now;
    std::erase_if(known_, [](const auto& entry) { return entry.second.list.expired(); });
}

const LearnedItems::InList& LearnedItems::in(const PreparedList& list) {
    const auto found = known_.find(&list);
    if (found != known_.end()) {
        return found->second.items;
    }
    return known_.emplace(&list, Known{.list = list.weak_from_this(), .items = find(list)})
        .first->second.items;
}

LearnedItems::InList LearnedItems::find(const PreparedList& list) const {
    InList found;
    for (const auto& known : usage_.records()) {
        const UsageStore::Record& record = known.second;
        list.ids().find(known.first, list.items(), [&](std::uint32_t index) {
            const auto firstMask = static_cast<std::uint32_t>(found.masks.size());
            const TextTable& titles = list.titles();
            const TextTable& keywords = list.keywords().texts();
            const TextTable& combined = list.combined();
            found.masks.push_back(titles.masks()[titles.slotOf(index)]);
            for (const std::uint32_t keyword : list.keywords().keywordsOf(index)) {
                found.masks.push_back(keywords.masks()[keywords.slotOf(keyword)]);
            }
            found.items.push_back({.index = index,
                                   .record = &record,
                                   .boostCeiling = boostCeiling(record),
                                   .firstMask = firstMask,
                                   .endMask = static_cast<std::uint32_t>(found.masks.size()),
                                   .combinedMask = combined.masks()[combined.slotOf(index)]});
            found.indices.push_back(index);
        });
    }
    std::sort(found.indices.begin(), found.indices.end());
    std::sort(found.items.begin(), found.items.end(), [](const Item& left, const Item& right) {
        return left.boostCeiling > right.boostCeiling;
    });
    return found;
}

double LearnedItems::boostCeiling(const UsageStore::Record& record) const {
    constexpr double kMargin = 1e-9;
    return record.lastUsed > asOf_ ? std::numeric_limits<double>::infinity()
                                   : usage_.boostParts(record).sum() * (1 + kMargin);
}

} // namespace pello
