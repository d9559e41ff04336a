#pragma once

#include "platform/LoginItem.h"

namespace pello {

/// The main application as a login item of the system. Refuses where the program runs outside an
/// application bundle.
class MainAppLoginItem final : public LoginItem {
public:
    [[nodiscard]] bool isEnabled() const override;
    bool registerItem() override;
    bool unregisterItem() override;
};

} // namespace pello
