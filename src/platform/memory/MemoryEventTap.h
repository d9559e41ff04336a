#pragma once

#include "platform/EventTap.h"

#include <memory>

namespace pello {

/// A tap whose owner is the keyboard, the mouse and the system.
class MemoryEventTap final : public EventTap {
public:
    [[nodiscard]] bool install(const TapRequest& request, Handler handler) override;
    void remove() override;
    void enable() override { isOn_ = isOn_ || canBeEnabled; }
    [[nodiscard]] bool isEnabled() const override { return isOn_; }
    void refresh() override { ++refreshes; }
    [[nodiscard]] std::optional<std::string> obstacle() const override { return whyNever; }
    void resetCapsLock() override { ++capsLockResets; }
    [[nodiscard]] std::uint64_t heldModifiers() const override { return held; }
    void holdKeyboard() override { isKeyboardHeld = true; }
    void releaseKeyboard() override { isKeyboardHeld = false; }
    [[nodiscard]] bool isSecureInputEngaged() const override { return isSecure; }

    /// Lets `event` happen, and answers whether it was swallowed. The two events that tell of a
    /// switched off tap switch it off first; the others pass one that is off or not installed.
    bool happen(InputEvent& event);

    /// What the installed tap was asked for; nothing when none is installed.
    [[nodiscard]] const std::optional<TapRequest>& request() const { return request_; }

    /// Switches the tap off without telling it.
    void breakDown() { isOn_ = false; }

    /// What the system does.
    bool canBeInstalled = true;
    bool canBeEnabled = true;
    bool isSecure = false;
    std::optional<std::string> whyNever;
    /// The modifiers that the keyboard holds down.
    std::uint64_t held = 0;

    /// What was asked of it.
    int installations = 0;
    int refreshes = 0;
    int capsLockResets = 0;
    bool isKeyboardHeld = false;

private:
    std::optional<TapRequest> request_;
    std::shared_ptr<const Handler> handler_;
    bool isOn_ = false;
};

} // namespace pello
