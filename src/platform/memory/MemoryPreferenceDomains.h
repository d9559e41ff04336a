#pragma once

#include "platform/PreferenceDomains.h"

#include <map>
#include <string>
#include <utility>

namespace pello {

/// Preferences kept in memory. None at first: what a desktop without such domains has.
class MemoryPreferenceDomains final : public PreferenceDomains {
public:
    [[nodiscard]] std::optional<PropertyValue> value(std::string_view domain,
                                                     std::string_view key) const override {
        const auto entry = values.find({std::string(domain), std::string(key)});
        return entry == values.end() ? std::nullopt : std::optional(entry->second);
    }

    /// By domain and key.
    std::map<std::pair<std::string, std::string>, PropertyValue> values;
};

} // namespace pello
