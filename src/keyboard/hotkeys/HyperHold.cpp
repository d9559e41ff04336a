#include "keyboard/hotkeys/HyperHold.h"

#include "keyboard/hotkeys/TapDuration.h"
#include "platform/ModifierFlags.h"

#include <utility>

namespace pello {

void HyperHold::begin(const InputEvent& press, Date now) {
    if (!press.isRepeat) {
        *this = {};
        isDown_ = true;
        pressedAt_ = now;
    }
}

bool HyperHold::endsInTap(Date now) {
    const HyperHold hold = std::exchange(*this, {});
    return hold.pressedAt_ && !hold.wasUsed_ && isTap(*hold.pressedAt_, now);
}

void HyperHold::use(InputEvent& event) {
    wasUsed_ = wasUsed_ || isDown_;
    mark(event);
}

void HyperHold::mark(InputEvent& event) const {
    if (isDown_) {
        event.flags &= ~modifiers::kCapsLock;
        event.flags |= modifiers::kShortcutMask;
    }
}

} // namespace pello
