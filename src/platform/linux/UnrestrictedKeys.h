#pragma once

#include "platform/KeyPermissions.h"

namespace pello {

/// X lets every program of the user listen.
class UnrestrictedKeys final : public KeyPermissions {
public:
    [[nodiscard]] bool isAccessibilityTrusted() const override { return true; }
    [[nodiscard]] bool hasInputMonitoring() const override { return true; }
};

} // namespace pello
