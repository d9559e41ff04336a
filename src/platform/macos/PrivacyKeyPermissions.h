#pragma once

#include "platform/KeyPermissions.h"

namespace pello {

/// The permissions as the user's privacy settings have them.
class PrivacyKeyPermissions final : public KeyPermissions {
public:
    [[nodiscard]] bool isAccessibilityTrusted() const override;
    [[nodiscard]] bool hasInputMonitoring() const override;
};

} // namespace pello
