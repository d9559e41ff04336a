#include "platform/linux/DefaultsMerge.h"

namespace pello {

void applyChanges(const DefaultsChanges& changes, PropertyDictionary& values) {
    for (const auto& [key, value] : changes) {
        if (value) {
            values.insert_or_assign(key, *value);
        } else {
            values.erase(key);
        }
    }
}

DefaultsChanges joined(DefaultsChanges earlier, const DefaultsChanges& later) {
    for (const auto& [key, value] : later) {
        earlier.insert_or_assign(key, value);
    }
    return earlier;
}

DefaultsChanges differences(const PropertyDictionary& before, const PropertyDictionary& after) {
    DefaultsChanges changes;
    for (const auto& [key, value] : before) {
        if (!after.contains(key)) {
            changes.emplace(key, std::nullopt);
        }
    }
    for (const auto& [key, value] : after) {
        const auto found = before.find(key);
        if (found == before.end() || found->second != value) {
            changes.emplace(key, value);
        }
    }
    return changes;
}

} // namespace pello
