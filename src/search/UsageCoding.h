#pragma once

#include "base/PropertyValue.h"
#include "search/UsageStore.h"

#include <functional>
#include <map>
#include <string>

/// How learned data lies in the user defaults: records as JSON in a data value
/// (`{"app:x": {"count": 3, "lastUsed": 7.1e8}}`, seconds since the reference date), bindings as a
/// dictionary of strings.
namespace pello::UsageCoding {

/// Nothing when the data is anything else. A count below 1 is read as 1.
[[nodiscard]] UsageStore::Records decodeRecords(const PropertyData& json);
[[nodiscard]] PropertyValue encodeRecords(const UsageStore::Records& records);

/// Nothing unless every value is a string.
[[nodiscard]] std::map<std::string, std::string, std::less<>>
decodeBindings(const PropertyValue& value);
[[nodiscard]] PropertyValue
encodeBindings(const std::map<std::string, std::string, std::less<>>& bindings);

} // namespace pello::UsageCoding
