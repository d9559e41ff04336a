#pragma once

#include <cstdint>

namespace pello {

/// One thing that happened at the keyboard or mouse, or to the tap that listens. A plain value.
struct InputEvent {
    enum class Kind {
        keyDown,
        keyUp,
        /// A modifier key or Caps Lock went down or up: `keyCode` says which, `flags` the state
        /// after it. No keyDown or keyUp comes for these keys.
        flagsChanged,
        /// A mouse button went down; `keyCode` means nothing.
        mouseDown,
        /// The system switched the tap off because its handler was too slow.
        disabledByTimeout,
        /// The system switched the tap off because the user asked for that.
        disabledByUserInput
    };

    Kind kind = Kind::keyDown;
    /// Of VirtualKeys.h.
    std::uint16_t keyCode = 0;
    /// Of ModifierFlags.h, the sides and the Caps Lock state included.
    std::uint64_t flags = 0;
    /// The key is held and repeats itself.
    bool isRepeat = false;

    friend bool operator==(const InputEvent&, const InputEvent&) = default;
};

} // namespace pello
