#pragma once

#include "base/PropertyValue.h"

#import <Foundation/Foundation.h>

#include <optional>
#include <string_view>

/// Property values as Foundation's objects. Objective-C++ only; any thread.
namespace pello {

[[nodiscard]] NSString* stringObject(std::string_view utf8);
[[nodiscard]] id propertyObject(const PropertyValue& value);

/// Nothing for an object that no property list holds.
[[nodiscard]] std::optional<PropertyValue> propertyValue(id object);

} // namespace pello
