#pragma once

namespace pello {

/// Whether the program starts when the user logs in. Main thread only.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    /// Whether the platform reports it enabled now.
    [[nodiscard]] virtual bool isEnabled() const = 0;

    /// Asks the platform to start the program at login, or not to. False when it refused.
    virtual bool registerItem() = 0;
    virtual bool unregisterItem() = 0;
};

} // namespace pello
