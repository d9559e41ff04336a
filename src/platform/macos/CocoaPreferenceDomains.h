#pragma once

#include "platform/PreferenceDomains.h"

namespace pello {

/// The preferences of applications, as the system reads them for this user and machine.
class CocoaPreferenceDomains final : public PreferenceDomains {
public:
    [[nodiscard]] std::optional<PropertyValue> value(std::string_view domain,
                                                     std::string_view key) const override;
};

} // namespace pello
