#pragma once

#include "core/items/LaunchItem.h"
#include "core/items/SearchResult.h"

#include <memory>
#include <string>
#include <vector>

namespace pello::testing {

/// An item that is only searched for; its id is the title unless another is given.
struct ItemSketch {
    std::string title;
    std::vector<std::string> keywords;
    LaunchItem::Kind kind = LaunchItem::Kind::application;
    std::string id;
};

inline LaunchItem launchItem(ItemSketch sketch) {
    LaunchItem item;
    item.id = sketch.id.empty() ? sketch.title : std::move(sketch.id);
    item.title = std::move(sketch.title);
    item.keywords = std::move(sketch.keywords);
    item.kind = sketch.kind;
    return item;
}

inline std::vector<LaunchItem> launchItems(std::vector<ItemSketch> sketches) {
    std::vector<LaunchItem> items;
    items.reserve(sketches.size());
    for (ItemSketch& sketch : sketches) {
        items.push_back(launchItem(std::move(sketch)));
    }
    return items;
}

inline LaunchItemRef sharedItem(ItemSketch sketch) {
    return std::make_shared<const LaunchItem>(launchItem(std::move(sketch)));
}

inline std::vector<std::string> titles(const std::vector<SearchResult>& results) {
    std::vector<std::string> result;
    result.reserve(results.size());
    for (const SearchResult& row : results) {
        result.push_back(row.item->title);
    }
    return result;
}

} // namespace pello::testing
