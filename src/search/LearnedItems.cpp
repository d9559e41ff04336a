// Learned items are few, and the only ones with a boost. Judged on their own they leave a search of
// all others that needs no boost, and they come first, because they raise what the others have to
// reach.
//
// A boost only decays while time goes on, so one computed earlier is an upper bound until the clock
// is set back. The bound has a margin for the rounding of two computations; an item used in the
// future has no bound at all. Whoever gets past it is given the exact boost.

#include "search/LearnedItems.h"

#include <algorithm>
#include <limits>

namespace pello {
namespace {

std::uint64_t maskOf(const PreparedList& list, std::uint32_t item) {
    const TextTable& keywords = list.keywords().texts();
    std::uint64_t mask = list.titles().masks()[list.titles().slotOf(item)] |
                         list.combined().masks()[list.combined().slotOf(item)];
    for (const std::uint32_t keyword : list.keywords().keywordsOf(item)) {
        mask |= keywords.masks()[keywords.slotOf(keyword)];
    }
    return mask;
}

} // namespace

void LearnedItems::update() {
    if (revision_ != usage_.revision() || usage_.now() < asOf_) {
        known_.clear();
        revision_ = usage_.revision();
        asOf_ = usage_.now();
    }
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
    for (const auto& [id, record] : usage_.records()) {
        list.ids().find(id, list.items(), [&](std::uint32_t index) {
            found.items.push_back({.index = index,
                                   .record = &record,
                                   .boostCeiling = boostCeiling(record),
                                   .mask = maskOf(list, index)});
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
