#pragma once

#include "platform/KeyPermissions.h"

namespace pello {

/// Permissions that the owner gives and takes.
class MemoryKeyPermissions final : public KeyPermissions {
public:
    [[nodiscard]] bool isAccessibilityTrusted() const override { return accessibility; }
    [[nodiscard]] bool hasInputMonitoring() const override { return inputMonitoring; }

    bool accessibility = true;
    bool inputMonitoring = true;
};

} // namespace pello
