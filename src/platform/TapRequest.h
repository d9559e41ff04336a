#pragma once

#include <cstdint>
#include <vector>

namespace pello {

/// What a tap's handler is going to take from applications. A plain value.
///
/// For taps that can take only what they announce beforehand. One that sees every event before
/// applications do goes by its handler's answers alone.
struct TapRequest {
    /// A key with exactly these of the four modifiers, in whatever state Caps Lock is: its press,
    /// repeats and release.
    struct Combo {
        std::uint16_t keyCode = 0;
        std::uint64_t modifiers = 0;
        friend bool operator==(const Combo&, const Combo&) = default;
    };
    std::vector<Combo> combos;

    /// Tab with Command, with and without Shift; and every key while the keyboard is held.
    bool takesCommandTab = false;

    /// Caps Lock is the Hyper key: it comes as keyDown and keyUp of `virtualKeys::kHyper`.
    bool isHyperOn = false;

    /// A press of Caps Lock activates: its flagsChanged events are taken and the lock is reset.
    bool capsLockActivates = false;

    friend bool operator==(const TapRequest&, const TapRequest&) = default;
};

} // namespace pello
