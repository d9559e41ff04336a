#pragma once

#include "platform/LoginItem.h"

namespace pello {

/// A login item kept in memory, which may refuse.
class MemoryLoginItem final : public LoginItem {
public:
    [[nodiscard]] bool isEnabled() const override { return enabled; }
    bool registerItem() override { return change(true); }
    bool unregisterItem() override { return change(false); }

    bool enabled = false;
    bool refuses = false;

private:
    bool change(bool wanted) {
        if (!refuses) {
            enabled = wanted;
        }
        return !refuses;
    }
};

} // namespace pello
