#pragma once

#include "keyboard/hotkeys/CommandTabEvent.h"
#include "keyboard/hotkeys/HotkeyConfiguration.h"
#include "keyboard/hotkeys/KeyGestures.h"
#include "keyboard/hotkeys/StallGuard.h"
#include "platform/KeyPermissions.h"
#include "platform/OwnProgram.h"
#include "platform/PelloLog.h"
#include "platform/RepeatingTimer.h"
#include "platform/SessionEvents.h"
#include "platform/Shell.h"
#include "platform/UserDefaults.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// The one listener at the session's keyboard: recognises the activation gesture, the glyph combo,
/// the Hyper key and Command-Tab, and keeps the tap that it listens with alive.
///
/// A tap that the system switched off is switched on again, or made anew; one that the system
/// keeps switching off for being slow is given up until the next launch. While a permission is
/// missing, it is looked for every second. Main thread only.
class HotkeyManager {
public:
    using CommandTabEvent = pello::CommandTabEvent;

    enum class Health {
        listening,
        needsPermission,
        /// The system refuses although the permission is there.
        blocked,
        /// Given up; only a relaunch helps.
        suspended
    };

    /// What the manager works with; all of it must outlive the manager.
    struct Ports {
        MainLoop& loop;
        EventTap& tap;
        const KeyPermissions& permissions;
        const KeyboardLayout& layout;
        SessionEvents& session;
        Shell& shell;
        OwnProgram& program;
        UserDefaults& defaults;
        Log& log;
    };

    /// Reads the permissions; does not listen yet.
    explicit HotkeyManager(const Ports& ports);
    HotkeyManager(const HotkeyManager&) = delete;
    HotkeyManager& operator=(const HotkeyManager&) = delete;
    ~HotkeyManager();

    /// Listens for `configuration` from now on. Nothing happens when it does so already.
    void configure(const HotkeyConfiguration& configuration);

    /// Installs the tap, unless there is one.
    void start();

    /// Gives the tap up. A Command-Tab session is cancelled.
    void stop();

    /// Follows one event of the tap; true when it is to be swallowed.
    [[nodiscard]] bool handle(InputEvent& event);

    /// Reads the permissions again, and makes the tap anew when that can make a difference.
    void refreshPermissions();

    /// Takes the program off the system's lists of permissions and relaunches it. When that is
    /// refused it listens on, and `done` is told false.
    void resetPermissions(std::function<void(bool succeeded)> done);

    /// Opens a new instance of the program and ends this one.
    void relaunch();

    [[nodiscard]] Health health() const;

    /// The tap is installed.
    [[nodiscard]] bool isRunning() const { return isRunning_; }
    /// Given up after repeated stalls.
    [[nodiscard]] bool isSuspended() const { return isSuspended_; }
    /// Why the listener does not work, for the user.
    [[nodiscard]] const std::optional<std::string>& lastFailure() const { return lastFailure_; }
    /// The permissions as last seen.
    [[nodiscard]] bool isAccessibilityTrusted() const { return isAccessibilityTrusted_; }
    [[nodiscard]] bool hasInputMonitoring() const { return hasInputMonitoring_; }
    /// How often the activation fired since launch.
    [[nodiscard]] std::int64_t activationCount() const { return activationCount_; }
    [[nodiscard]] const HotkeyConfiguration& configuration() const { return configuration_; }

    /// The activation gesture was made. Called while the tap waits for the answer, as are the
    /// other two: be quick.
    std::function<void()> onActivate;
    /// The glyph combo was pressed.
    std::function<void()> onActivateGlyphPicker;
    /// A step of a Command-Tab session. Without it a session still takes its keys.
    std::function<void(CommandTabEvent event)> onCommandTab;

    /// Emitted after one of the values above changed.
    Signal<> changed;

private:
    [[nodiscard]] KeyGestures::Callbacks gestureCallbacks();
    void fire();

    void installTap();
    void recreateTap();
    void noteRefusal();
    void rearm(std::string_view reason);
    void suspendAfterTimeouts();

    void installWatchdogIfNeeded();
    void wakeCheck(const std::string& reason);
    void checkTapHealth(std::string_view reason);
    void pollPermissions();

    /// Runs `action` in a later turn of the loop, if this object still is there.
    void later(void (HotkeyManager::*action)());

    /// Changes `field` to `value`, and tells of it.
    template <class Field, class Value>
    void update(Field& field, const Value& value);

    Ports ports_;
    PelloLog log_;
    HotkeyConfiguration configuration_;
    KeyGestures gestures_;
    StallGuard stallGuard_;
    bool isRunning_ = false;
    bool isSuspended_ = false;
    bool isResetting_ = false;
    bool isAccessibilityTrusted_;
    bool hasInputMonitoring_;
    std::optional<std::string> lastFailure_;
    std::int64_t activationCount_ = 0;
    Subscription watchdogObserver_;
    RepeatingTimer watchdogTimer_;
    RepeatingTimer permissionPoll_;
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
