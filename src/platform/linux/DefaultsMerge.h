#pragma once

#include "base/PropertyValue.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// Bringing together what several processes changed: each process knows which keys it changed
/// itself, and for those its own value counts; for all others what the file says.
namespace pello {

/// New values by key; no value for a key that was removed.
using DefaultsChanges = std::map<std::string, std::optional<PropertyValue>, std::less<>>;

/// Does `changes` to `values`.
void applyChanges(const DefaultsChanges& changes, PropertyDictionary& values);

/// `earlier`, then `later`.
[[nodiscard]] DefaultsChanges joined(DefaultsChanges earlier, const DefaultsChanges& later);

/// What turns `before` into `after`.
[[nodiscard]] DefaultsChanges differences(const PropertyDictionary& before,
                                          const PropertyDictionary& after);

} // namespace pello
