#include "core/controller/KeyboardControl.h"

#include "keyboard/hotkeys/HyperKey.h"

#include <utility>

namespace pello {

KeyboardControl::KeyboardControl(PelloController& controller, HotkeyManager& hotkey, Shell& shell)
    : controller_(controller), hotkey_(hotkey), shell_(shell) {
    hotkey_.onActivate = [this] {
        if (controller_.isPresented()) {
            controller_.hide();
        } else if (!takesActivation || !takesActivation()) {
            open([this] { controller_.toggle(); });
        }
    };
    hotkey_.onActivateGlyphPicker = [this] { open([this] { controller_.show(":"); }); };
}

void KeyboardControl::open(std::function<void()> action) {
    if (beforeOpening) {
        beforeOpening(std::move(action));
    } else {
        action();
    }
}

KeyboardControl::~KeyboardControl() {
    hotkey_.onActivate = nullptr;
    hotkey_.onActivateGlyphPicker = nullptr;
}

void KeyboardControl::start() {
    const auto follow = [this] {
        applyHyperKeyMapping();
        configureHotkey();
    };
    following_ = controller_.settings().changed.connect(follow);
    health_ = hotkey_.changed.connect([this] { reportFailure(); });
    follow();
}

void KeyboardControl::reportFailure() {
    const auto& failure = hotkey_.lastFailure();
    if (std::exchange(reported_, failure) != failure && failure) {
        controller_.report(*failure);
    }
}

void KeyboardControl::configureHotkey() {
    const PelloSettings& settings = controller_.settings();
    hotkey_.configure({.activation = settings.activation.get(),
                       .combo = settings.keyCombo.get(),
                       .glyphCombo = settings.glyphCombo.get(),
                       .hyperEnabled = settings.capsLockIsHyper.get(),
                       .replacesCommandTab = settings.replacesCommandTab.get()});
}

/// The tool is asked for one thing at a time: what is wanted meanwhile comes afterwards.
void KeyboardControl::applyHyperKeyMapping() {
    const PelloSettings& settings = controller_.settings();
    const bool wanted = settings.capsLockIsHyper.get();
    if (isApplying_ || appliedHyperMapping_ == wanted) {
        return;
    }
    appliedHyperMapping_ = wanted;
    if (wanted) {
        isApplying_ = true;
        HyperKey::enable(shell_, [this, alive = std::weak_ptr(alive_)](bool didInstall) {
            if (alive.expired()) {
                return;
            }
            // One that is in place already is ours only if an earlier run said so and was killed.
            if (didInstall) {
                controller_.settings().ownsHyperMapping.set(true);
            }
            hyperKeyMappingApplied();
        });
    } else if (settings.ownsHyperMapping.get()) {
        isApplying_ = true;
        HyperKey::remove(shell_, [this, alive = std::weak_ptr(alive_)] {
            if (!alive.expired()) {
                controller_.settings().ownsHyperMapping.set(false);
                hyperKeyMappingApplied();
            }
        });
    }
}

void KeyboardControl::hyperKeyMappingApplied() {
    isApplying_ = false;
    applyHyperKeyMapping();
}

void KeyboardControl::finish(Successor successor) {
    following_ = {};
    health_ = {};
    hotkey_.stop();
    auto& owns = controller_.settings().ownsHyperMapping;
    if (owns.get() && successor == Successor::none) {
        HyperKey::removeSynchronously(shell_);
        owns.set(false);
    }
}

} // namespace pello
