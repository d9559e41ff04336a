#include "keyboard/hotkeys/ModifierTap.h"

#include "keyboard/hotkeys/TapDuration.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <utility>

namespace pello {
namespace {

/// A modifier key that can activate by itself.
struct LoneKey {
    std::uint16_t keyCode;
    /// Set while the key is down.
    std::uint64_t downFlag;
    /// The class of modifiers that it belongs to: its twin on the other side spoils no tap.
    std::uint64_t ownClass;
};

std::optional<LoneKey> loneKeyOf(Activation activation) {
    switch (activation) {
    case Activation::rightCommand:
        return LoneKey{virtualKeys::kRightCommand, modifiers::kRightCommandSide,
                       modifiers::kCommand};
    case Activation::rightOption:
        return LoneKey{virtualKeys::kRightOption, modifiers::kRightOptionSide, modifiers::kOption};
    case Activation::rightControl:
        return LoneKey{virtualKeys::kRightControl, modifiers::kRightControlSide,
                       modifiers::kControl};
    case Activation::capsLock:
        return LoneKey{virtualKeys::kCapsLock, modifiers::kCapsLock, modifiers::kCapsLock};
    case Activation::keyCombo:
        break;
    }
    return std::nullopt;
}

} // namespace

bool ModifierTap::completes(const InputEvent& event, Activation activation, Date now) {
    const auto pressedAt = std::exchange(pressedAt_, std::nullopt);
    const auto key = loneKeyOf(activation);
    if (!key || event.keyCode != key->keyCode) {
        return false;
    }
    if ((event.flags & key->downFlag) == 0) {
        return pressedAt && isTap(*pressedAt, now);
    }
    if ((event.flags & modifiers::kShortcutMask & ~key->ownClass) == 0) {
        pressedAt_ = now;
    }
    return false;
}

} // namespace pello
