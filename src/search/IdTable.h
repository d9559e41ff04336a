#pragma once

#include "core/items/LaunchItem.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace pello {

/// Finds the items of a list by their ids. Holds numbers only; the ids stay in the items.
class IdTable {
public:
    explicit IdTable(std::span<const LaunchItem> items);

    /// Calls `visit(index)` for each item with this id (one, in a sound list). `items` are those
    /// that the table was made from.
    template <class Visit>
    void find(std::string_view id, std::span<const LaunchItem> items, Visit visit) const {
        for (std::size_t place = placeOf(id); places_[place] != kFree;
             place = (place + 1) & (places_.size() - 1)) {
            if (items[places_[place]].id == id) {
                visit(places_[place]);
            }
        }
    }

    /// Bytes held outside of the object.
    [[nodiscard]] std::size_t footprint() const {
        return places_.capacity() * sizeof(std::uint32_t);
    }

private:
    static constexpr auto kFree = static_cast<std::uint32_t>(-1);

    [[nodiscard]] std::size_t placeOf(std::string_view id) const {
        return std::hash<std::string_view>{}(id) & (places_.size() - 1);
    }

    std::vector<std::uint32_t> places_; // a power of two, never full
};

} // namespace pello
