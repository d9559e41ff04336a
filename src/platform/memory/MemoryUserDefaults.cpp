#include "platform/memory/MemoryUserDefaults.h"

#include <algorithm>
#include <iterator>

namespace pello {

std::optional<PropertyValue> MemoryUserDefaults::value(std::string_view key) const {
    if (const auto found = stored_.find(key); found != stored_.end()) {
        return found->second;
    }
    if (const auto found = registered_.find(key); found != registered_.end()) {
        return found->second;
    }
    return std::nullopt;
}

void MemoryUserDefaults::set(std::string_view key, PropertyValue value) {
    ++writeCount_;
    stored_.insert_or_assign(std::string(key), std::move(value));
}

void MemoryUserDefaults::remove(std::string_view key) {
    ++writeCount_;
    if (const auto found = stored_.find(key); found != stored_.end()) {
        stored_.erase(found);
    }
}

void MemoryUserDefaults::registerDefaults(PropertyDictionary defaults) {
    for (auto& [key, value] : defaults) {
        registered_.insert_or_assign(key, std::move(value));
    }
}

std::vector<std::string> MemoryUserDefaults::storedKeys() const {
    std::vector<std::string> keys;
    std::transform(stored_.begin(), stored_.end(), std::back_inserter(keys),
                   [](const auto& entry) { return entry.first; });
    return keys;
}

void MemoryUserDefaults::setElsewhere(std::string_view key, PropertyValue value) {
    stored_.insert_or_assign(std::string(key), std::move(value));
    changedElsewhere.emit({std::string(key)});
}

} // namespace pello
