#include "keyboard/hotkeys/HotkeyManager.h"

#include "base/RawValues.h"
#include "keyboard/hotkeys/Permissions.h"

#include <chrono>
#include <utility>

namespace pello {
namespace {

constexpr std::string_view kRefusedThoughTrusted =
    "macOS lists Pello as allowed but won't let it listen. Reset its permissions below and grant "
    "them again.";
constexpr std::string_view kNotTrusted =
    "Pello could not install its keyboard listener. Grant Accessibility access, and it will start "
    "listening straight away.";
constexpr std::string_view kStalled =
    "macOS kept stalling Pello's keyboard listener, so Pello switched it off rather than slow down "
    "your keyboard and mouse. This usually means its permissions changed while it was running. "
    "Quit and reopen Pello.";
constexpr std::string_view kNotReopened =
    "Pello couldn't reopen itself. Quit Pello and open it again.";

std::string_view word(bool value) {
    return value ? "true" : "false";
}

std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces) {
        text += piece;
    }
    return text;
}

} // namespace

HotkeyManager::HotkeyManager(const Ports& ports)
    : ports_(ports),
      log_(ports.log),
      gestures_({.loop = ports.loop, .tap = ports.tap, .layout = ports.layout}, configuration_,
                log_, gestureCallbacks()),
      isAccessibilityTrusted_(ports.permissions.isAccessibilityTrusted()),
      hasInputMonitoring_(ports.permissions.hasInputMonitoring()),
      watchdogTimer_(ports.loop),
      permissionPoll_(ports.loop) {}

HotkeyManager::~HotkeyManager() {
    if (isRunning_) {
        ports_.tap.remove();
    }
}

KeyGestures::Callbacks HotkeyManager::gestureCallbacks() {
    return {.activate = [this] { fire(); },
            .openGlyphPicker =
                [this] {
                    if (onActivateGlyphPicker) {
                        onActivateGlyphPicker();
                    }
                },
            .commandTab =
                [this](CommandTabEvent event) {
                    if (onCommandTab) {
                        onCommandTab(event);
                    }
                }};
}

template <class Field, class Value>
void HotkeyManager::update(Field& field, const Value& value) {
    if (field != value) {
        field = value;
        changed.emit();
    }
}

void HotkeyManager::later(void (HotkeyManager::*action)()) {
    ports_.loop.post([this, action, weak = std::weak_ptr(alive_)] {
        if (!weak.expired()) {
            (this->*action)();
        }
    });
}

// The tap

void HotkeyManager::configure(const HotkeyConfiguration& configuration) {
    if (configuration == configuration_ && isRunning_) {
        return;
    }
    update(configuration_, configuration);
    recreateTap();
}

void HotkeyManager::start() {
    if (isRunning_) {
        return;
    }
    if (!isSuspended_ && !isResetting_) {
        installTap();
    }
    pollPermissions();
}

void HotkeyManager::installTap() {
    gestures_.forgetTap();
    if (!ports_.tap.install(configuration_.tapRequest(),
                            [this](InputEvent& event) { return handle(event); })) {
        noteRefusal();
        return;
    }
    update(isRunning_, true);
    update(lastFailure_, std::nullopt);
    log_.hotkey.info(joined({"Event tap installed (", rawValue(configuration_.activation), ")"}));
    installWatchdogIfNeeded();
}

void HotkeyManager::noteRefusal() {
    const bool isTrusted = ports_.permissions.isAccessibilityTrusted();
    if (!lastFailure_) {
        log_.hotkey.error(joined(
            {"Event tap could not be created (Accessibility trusted = ", word(isTrusted), ")"}));
    }
    const auto obstacle = ports_.tap.obstacle();
    update(lastFailure_,
           obstacle.value_or(std::string(isTrusted ? kRefusedThoughTrusted : kNotTrusted)));
}

void HotkeyManager::stop() {
    gestures_.stop();
    if (isRunning_) {
        ports_.tap.remove();
        update(isRunning_, false);
        log_.hotkey.info("Event tap removed");
    }
}

void HotkeyManager::recreateTap() {
    stop();
    start();
}

// Events

bool HotkeyManager::handle(InputEvent& event) {
    if (event.kind == InputEvent::Kind::disabledByUserInput) {
        rearm("user input");
        return false;
    }
    if (event.kind == InputEvent::Kind::disabledByTimeout) {
        if (stallGuard_.noteTimeoutAndCheckTrip(ports_.loop.now())) {
            later(&HotkeyManager::suspendAfterTimeouts);
        } else {
            rearm("timeout");
        }
        return false;
    }
    return gestures_.handle(event);
}

void HotkeyManager::fire() {
    log_.hotkey.info("Activation fired");
    ++activationCount_;
    if (onActivate) {
        onActivate();
    }
    changed.emit();
}

void HotkeyManager::rearm(std::string_view reason) {
    log_.hotkey.error(joined({"Event tap disabled by ", reason, "; re-arming"}));
    if (!isRunning_) {
        return;
    }
    ports_.tap.enable();
    if (!ports_.tap.isEnabled()) {
        log_.hotkey.info("Re-arm did not stick; recreating the tap");
        later(&HotkeyManager::recreateTap);
    }
}

void HotkeyManager::suspendAfterTimeouts() {
    if (isSuspended_) {
        return;
    }
    log_.hotkey.error(
        joined({"Event tap timed out ", std::to_string(stallGuard_.count()), " times in ",
                std::to_string(StallGuard::kWindowSeconds), "s; switching it off"}));
    update(isSuspended_, true);
    stop();
    stallGuard_.reset();
    update(lastFailure_, std::string(kStalled));
}

// Health

HotkeyManager::Health HotkeyManager::health() const {
    if (isSuspended_) {
        return Health::suspended;
    }
    if (isRunning_) {
        return configuration_.needsOnlyAccessibility() || hasInputMonitoring_
                   ? Health::listening
                   : Health::needsPermission;
    }
    return isAccessibilityTrusted_ ? Health::blocked : Health::needsPermission;
}

void HotkeyManager::installWatchdogIfNeeded() {
    if (watchdogObserver_) {
        return;
    }
    watchdogObserver_ =
        ports_.session.resumed.connect([this](const std::string& reason) { wakeCheck(reason); });
    watchdogTimer_.start(std::chrono::seconds(30), [this] {
        refreshPermissions();
        checkTapHealth("watchdog");
    });
}

void HotkeyManager::wakeCheck(const std::string& reason) {
    log_.hotkey.info(isRunning_ ? joined({reason, ": tap enabled = ", word(ports_.tap.isEnabled())})
                                : reason + ": no tap installed");
    if (ports_.tap.isSecureInputEngaged()) {
        log_.hotkey.info("Secure event input is engaged; the tap may not be seeing keystrokes");
    }
    checkTapHealth(reason);
}

void HotkeyManager::checkTapHealth(std::string_view reason) {
    if (!isRunning_) {
        return;
    }
    ports_.tap.refresh();
    if (ports_.tap.isEnabled()) {
        return;
    }
    log_.hotkey.info(joined({"Tap found dead (", reason, "); re-enabling"}));
    ports_.tap.enable();
    if (!ports_.tap.isEnabled()) {
        log_.hotkey.info("Tap would not re-enable; recreating it");
        recreateTap();
    }
}

// Permissions

void HotkeyManager::refreshPermissions() {
    const bool isTrusted = ports_.permissions.isAccessibilityTrusted();
    const bool isMonitoring = ports_.permissions.hasInputMonitoring();
    const bool differs =
        isTrusted != isAccessibilityTrusted_ || isMonitoring != hasInputMonitoring_;
    if (differs) {
        log_.hotkey.info(joined({"Permissions changed: Accessibility = ", word(isTrusted),
                                 ", Input Monitoring = ", word(isMonitoring)}));
        update(isAccessibilityTrusted_, isTrusted);
        update(hasInputMonitoring_, isMonitoring);
    }
    if (!isSuspended_ && (differs || health() == Health::blocked)) {
        recreateTap();
    }
}

void HotkeyManager::pollPermissions() {
    const bool isHopeless = ports_.tap.obstacle().has_value();
    if (isHopeless || permissionPoll_.isRunning() || health() == Health::listening) {
        return;
    }
    log_.hotkey.info("Polling for permission changes");
    permissionPoll_.start(std::chrono::seconds(1), [this] {
        refreshPermissions();
        if (health() == Health::listening) {
            permissionPoll_.stop();
        }
    });
}

void HotkeyManager::resetPermissions(std::function<void(bool succeeded)> done) {
    isResetting_ = true; // nothing is to listen while the program disappears from the lists
    stop();
    Permissions::reset(ports_.shell, ports_.program.identifier(), ports_.log,
                       [this, weak = std::weak_ptr(alive_), done = std::move(done)](bool isReset) {
                           if (weak.expired()) {
                               return;
                           }
                           isResetting_ = false;
                           if (isReset) {
                               Permissions::expectRegrant(ports_.defaults);
                               relaunch();
                           } else {
                               start();
                           }
                           done(isReset);
                       });
}

void HotkeyManager::relaunch() {
    ports_.program.openNewInstance(
        [this, weak = std::weak_ptr(alive_)](const std::optional<std::string>& error) {
            if (weak.expired()) {
                return;
            }
            if (error) {
                log_.hotkey.error("Relaunch failed: " + *error);
                update(lastFailure_, std::string(kNotReopened));
            } else {
                log_.hotkey.info("Relaunching");
                ports_.program.terminate();
            }
        });
}

} // namespace pello
