#pragma once

#include "core/controller/PelloController.h"
#include "keyboard/hotkeys/HotkeyManager.h"
#include "platform/Shell.h"

#include <functional>
#include <memory>
#include <optional>

namespace pello {

/// Lets the keyboard open the launcher, as the settings say, and follows them at once.
///
/// Before `start` nothing is listened to or changed. Main thread only.
class KeyboardControl {
public:
    /// Whether another process of this program is there at the end of this one.
    enum class Successor { none, waiting };

    /// Everything must outlive the control.
    KeyboardControl(PelloController& controller, HotkeyManager& hotkey, Shell& shell);
    ~KeyboardControl();
    KeyboardControl(const KeyboardControl&) = delete;
    KeyboardControl& operator=(const KeyboardControl&) = delete;

    /// Applies the Hyper mapping, then listens; and both again whenever their settings change. What
    /// keeps the listener from working is shown in the panel.
    void start();

    /// For the end of the program: gives the keyboard back as it was before. The Hyper mapping is
    /// left to a successor. Waits for the system's tool.
    void finish(Successor successor);

    /// Makes the keyboard free for the panel and then calls its argument, at once where it can;
    /// without it, nothing has to be done for that.
    std::function<void(std::function<void()> open)> beforeOpening;

    /// Asked when the activation gesture was made and the panel is closed: true takes the gesture,
    /// and nothing is opened.
    std::function<bool()> takesActivation;

    /// The state of the Hyper mapping that was applied last; nothing before the first time.
    [[nodiscard]] std::optional<bool> appliedHyperMapping() const { return appliedHyperMapping_; }

private:
    void open(std::function<void()> action);
    void reportFailure();
    void configureHotkey();
    void applyHyperKeyMapping();
    void hyperKeyMappingApplied();

    PelloController& controller_;
    HotkeyManager& hotkey_;
    Shell& shell_;
    std::optional<bool> appliedHyperMapping_;
    bool isApplying_ = false;
    std::optional<std::string> reported_;
    Subscription following_;
    Subscription health_;
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
