#include "app/AgentKeyboard.h"

#include "keyboard/hotkeys/HyperKey.h"
#include "keyboard/hotkeys/Permissions.h"
#include "keyboard/keys/KeyCombo.h"

#include <algorithm>
#include <string_view>

namespace pello {
namespace {

std::string_view nameOf(HotkeyManager::Health health) {
    switch (health) {
    case HotkeyManager::Health::listening:
        return "listening";
    case HotkeyManager::Health::needsPermission:
        return "needsPermission";
    case HotkeyManager::Health::blocked:
        return "blocked";
    case HotkeyManager::Health::suspended:
        return "suspended";
    }
    return "";
}

std::string_view reasonOf(X11Grab::State state) {
    switch (state) {
    case X11Grab::State::held:
        return "";
    case X11Grab::State::takenByAnother:
        return "another program has it";
    case X11Grab::State::noSuchKey:
        return "the keyboard has no such key";
    case X11Grab::State::refused:
        return "the X server refuses it";
    }
    return "";
}

} // namespace

AgentKeyboard::AgentKeyboard(PelloController& controller, const Platform& platform,
                             const std::filesystem::path& folder, const std::function<void()>& quit)
    : controller_(controller),
      defaults_(platform.defaults),
      tap_(platform.loop),
      mapping_(folder),
      shell_(platform.loop, {{X11UserKeyMapping::kToolPath,
                              [this](const auto& arguments) { return mapping_.run(arguments); }}}),
      program_(platform.loop, quit),
      manager_({.loop = platform.loop,
                .tap = tap_,
                .permissions = permissions_,
                .layout = layout_,
                .session = session_,
                .shell = shell_,
                .program = program_,
                .defaults = platform.defaults,
                .log = platform.log}),
      control_(controller, manager_, shell_),
      claim_(platform.loop, tap_) {
    control_.beforeOpening = [this](std::function<void()> open) {
        if (controller_.isPresented()) {
            open(); // the keyboard is the panel's already
            return;
        }
        claim_.begin(panelWindow ? panelWindow() : 0,
                     [open = std::move(open)](X11KeyboardClaim::Outcome /*outcome*/) { open(); });
    };
}

void AgentKeyboard::start() {
    mapping_.takeOver();
    isRegrantExpected_ = Permissions::takeExpectedRegrant(defaults_);
    control_.start();
}

KeyboardReport AgentKeyboard::report() {
    const PelloSettings& settings = controller_.settings();
    const auto remaps = shell_.runSynchronously(X11UserKeyMapping::kToolPath,
                                                {"property", "--get", "UserKeyMapping"});
    const auto mappings = HyperKey::parse(remaps.output);
    return {.health = std::string(nameOf(manager_.health())),
            .lastFailure = manager_.lastFailure().value_or(""),
            .isAccessibilityTrusted = manager_.isAccessibilityTrusted(),
            .hasInputMonitoring = manager_.hasInputMonitoring(),
            .activation = activationName(),
            .grabs = grabs(),
            .areGrabsSettled = tap_.isSettled(),
            .hyper = {.isWanted = settings.capsLockIsHyper.get(),
                      .isInPlace =
                          std::ranges::find(mappings, HyperKey::kCapsLockToF18) != mappings.end(),
                      .isOwn = settings.ownsHyperMapping.get()}};
}

Subscription AgentKeyboard::suspend() {
    manager_.stop();
    return Subscription([this] { manager_.start(); });
}

std::optional<std::string> AgentKeyboard::problemOf(const KeyCombo& combo) const {
    for (const X11Grab& grab : tap_.grabs()) {
        const bool isIt = KeyCombo(grab.combo.keyCode, grab.combo.modifiers) == combo;
        if (isIt && grab.state != X11Grab::State::held) {
            return "This shortcut does not arrive: " + std::string(reasonOf(grab.state)) + '.';
        }
    }
    return std::nullopt;
}

void AgentKeyboard::checkHyperMapping(std::function<void(bool isActive)> done) {
    HyperKey::isActive(shell_, std::move(done));
}

std::string AgentKeyboard::activationName() const {
    switch (controller_.settings().activation.get()) {
    case Activation::rightCommand:
        return "a tap of the right Super key";
    case Activation::rightOption:
        return "a tap of the right Alt key";
    case Activation::rightControl:
        return "a tap of the right Control key";
    case Activation::capsLock:
        return "Caps Lock";
    case Activation::keyCombo:
        return controller_.settings().keyCombo.get().displayString(layout_);
    }
    return "";
}

std::vector<KeyboardReport::Grab> AgentKeyboard::grabs() const {
    std::vector<KeyboardReport::Grab> grabs;
    for (const X11Grab& grab : tap_.grabs()) {
        grabs.push_back(
            {.combo = KeyCombo(grab.combo.keyCode, grab.combo.modifiers).displayString(layout_),
             .isHeld = grab.state == X11Grab::State::held,
             .reason = std::string(reasonOf(grab.state))});
    }
    return grabs;
}

} // namespace pello
