#include "search/CombinedIndex.h"

#include <algorithm>

namespace pello {

CombinedIndex::CombinedIndex(std::span<const LaunchItem> items, const TextTable& titles,
                             const KeywordIndex& keywords) {
    const TextTable& texts = keywords.texts();
    std::vector<std::uint64_t> masks(items.size()); // by item
    for (std::uint32_t item = 0; item < items.size(); ++item) {
        if (items[item].keywords.empty()) {
            continue;
        }
        const std::uint32_t title = titles.slotOf(item);
        bool isRegular = titles.isRegular(item);
        std::size_t length = titles.bytes(title).characters.size();
        masks[item] = titles.masks()[title];
        for (const std::uint32_t keyword : keywords.keywordsOf(item)) {
            const std::uint32_t slot = texts.slotOf(keyword);
            isRegular = isRegular && texts.isRegular(keyword);
            length += 1 + texts.bytes(slot).characters.size();
            masks[item] |= texts.masks()[slot];
        }
        if (isRegular) {
            entries_.push_back({.item = item, .length = static_cast<std::uint32_t>(length)});
        } else {
            irregular_.push_back(item);
        }
    }
    std::stable_sort(entries_.begin(), entries_.end(), [](const Entry& left, const Entry& right) {
        return left.length < right.length;
    });
    masks_.reserve(entries_.size());
    for (const Entry& entry : entries_) {
        masks_.push_back(masks[entry.item]);
    }
    entries_.shrink_to_fit();
}

std::size_t CombinedIndex::footprint() const {
    return entries_.capacity() * sizeof(Entry) + masks_.capacity() * sizeof(std::uint64_t) +
           irregular_.capacity() * sizeof(std::uint32_t);
}

} // namespace pello
