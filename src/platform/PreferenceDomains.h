#pragma once

#include "base/PropertyValue.h"

#include <optional>
#include <string_view>

namespace pello {

/// The preferences of other programs and of the system, as they are now. Read only; main thread.
class PreferenceDomains {
public:
    virtual ~PreferenceDomains() = default;

    /// The value under `key` in `domain` ("com.apple.symbolichotkeys"); nothing when there is none
    /// or the desktop has no such thing.
    [[nodiscard]] virtual std::optional<PropertyValue> value(std::string_view domain,
                                                             std::string_view key) const = 0;
};

} // namespace pello
