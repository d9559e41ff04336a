#include "search/IdTable.h"

#include <bit>

namespace pello {

IdTable::IdTable(std::span<const LaunchItem> items)
    : places_(std::bit_ceil(items.size() + items.size() / 4 + 1), kFree) {
    for (std::uint32_t item = 0; item < items.size(); ++item) {
        std::size_t place = placeOf(items[item].id);
        while (places_[place] != kFree) {
            place = (place + 1) & (places_.size() - 1);
        }
        places_[place] = item;
    }
}

} // namespace pello
