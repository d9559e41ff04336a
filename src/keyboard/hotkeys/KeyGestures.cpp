#include "keyboard/hotkeys/KeyGestures.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <utility>

// Where an event goes, the first that takes it deciding:
//
//   press    Hyper key ─ (held Hyper adds its modifiers) ─ Command-Tab session ─ glyph combo
//            ─ activation combo ─ Command-Tab ─ application
//   release  Hyper key ─ (held Hyper adds its modifiers) ─ glyph combo ─ Command-Tab session
//            ─ Command-Tab ─ activation combo ─ application
//   modifier Command released: the session commits ─ Caps Lock ─ lone tap; application
//   click    (held Hyper adds its modifiers) ─ application

namespace pello {
namespace {

bool isCombo(const KeyCombo& combo, const InputEvent& event) {
    return combo == KeyCombo(event.keyCode, event.flags);
}

} // namespace

KeyGestures::KeyGestures(const Ports& ports, const HotkeyConfiguration& configuration,
                         const PelloLog& log, Callbacks callbacks)
    : loop_(ports.loop),
      eventTap_(ports.tap),
      configuration_(configuration),
      callbacks_(std::move(callbacks)),
      session_(ports.loop, ports.tap, ports.layout, log, callbacks_.commandTab) {}

bool KeyGestures::handle(InputEvent& event) {
    switch (event.kind) {
    case InputEvent::Kind::keyDown:
        return keyDown(event);
    case InputEvent::Kind::keyUp:
        return keyUp(event);
    case InputEvent::Kind::flagsChanged:
        return flagsChanged(event);
    case InputEvent::Kind::mouseDown:
        hyper_.use(event);
        tap_.spoil();
        return false;
    case InputEvent::Kind::disabledByTimeout:
    case InputEvent::Kind::disabledByUserInput:
        break;
    }
    return false;
}

void KeyGestures::stop() {
    session_.end(CommandTabEvent::Kind::cancel);
    hyper_.reset();
}

bool KeyGestures::keyDown(InputEvent& event) {
    tap_.spoil();
    if (isHyperKey(event)) {
        hyper_.begin(event, loop_.now());
        return true;
    }
    hyper_.use(event);
    if (session_.isActive()) {
        session_.handleKey(event);
        return true;
    }
    if (isGlyphCombo(event)) {
        if (!event.isRepeat) {
            callbacks_.openGlyphPicker();
        }
        return true;
    }
    if (isActivationCombo(event)) {
        if (!event.isRepeat) {
            callbacks_.activate();
        }
        return true;
    }
    if (isCommandTab(event)) {
        session_.begin();
        session_.step(event);
        return true;
    }
    return false;
}

bool KeyGestures::keyUp(InputEvent& event) {
    if (isHyperKey(event)) {
        if (hyper_.endsInTap(loop_.now()) && configuration_.activation == Activation::capsLock) {
            callbacks_.activate();
        }
        return true;
    }
    hyper_.mark(event);
    return isGlyphCombo(event) || session_.isActive() || isCommandTab(event) ||
           isActivationCombo(event);
}

bool KeyGestures::flagsChanged(const InputEvent& event) {
    if ((event.flags & modifiers::kCommand) == 0) {
        session_.end(CommandTabEvent::Kind::commit);
    }
    if (configuration_.capsLockActivates() && event.keyCode == virtualKeys::kCapsLock) {
        if ((event.flags & modifiers::kCapsLock) != 0) {
            eventTap_.resetCapsLock();
            callbacks_.activate();
        }
        return true;
    }
    if (tap_.completes(event, configuration_.activation, loop_.now())) {
        callbacks_.activate();
    }
    return false;
}

bool KeyGestures::isHyperKey(const InputEvent& event) const {
    return configuration_.hyperEnabled && event.keyCode == virtualKeys::kHyper;
}

bool KeyGestures::isGlyphCombo(const InputEvent& event) const {
    return configuration_.glyphCombo && isCombo(*configuration_.glyphCombo, event);
}

bool KeyGestures::isActivationCombo(const InputEvent& event) const {
    return configuration_.activation == Activation::keyCombo &&
           isCombo(configuration_.combo, event);
}

bool KeyGestures::isCommandTab(const InputEvent& event) const {
    constexpr std::uint64_t kTold = modifiers::kCommand | modifiers::kControl | modifiers::kOption;
    return configuration_.replacesCommandTab && event.keyCode == virtualKeys::kTab &&
           (event.flags & kTold) == modifiers::kCommand;
}

} // namespace pello
