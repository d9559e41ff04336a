#pragma once

#include "platform/EventTap.h"
#include "platform/linux/X11Modifiers.h"

#include <xcb/xcb.h>

#include <bitset>
#include <cstdint>
#include <map>
#include <optional>

namespace pello {

/// Makes one stream of key events of what an X server tells about its keyboard.
///
/// Raw events tell of every key, without modifiers and repeats, and nobody can take them; the
/// events of grabbed keys, which nobody else gets, tell of the same presses once more. This decides
/// which of the two stands for a press, so that the handler is asked about what it wants to take
/// exactly when it was taken. Knows nothing of connections.
class X11KeyStream {
public:
    using Keys = std::bitset<256>;

    /// The keyboard's state.
    struct State {
        /// The modifiers that are set, by whatever means, and those that are locked.
        std::uint8_t modifiers = 0;
        std::uint8_t locked = 0;
        Keys down;
    };

    /// What the keyboard's map says.
    struct Map {
        X11Modifiers modifiers;
        /// Caps Lock is mapped to be the Hyper key.
        bool isCapsLockHyper = false;
        /// Caps Lock locks capitals.
        bool doesCapsLockLock = true;
    };

    X11KeyStream(TapRequest request, EventTap::Handler handler);

    /// Keys that are down already only show in the flags.
    void begin(const Map& map, const State& state);

    /// Tells nothing any more. The handler may cause this while it is called.
    void end() { isOver_ = true; }

    void setMap(const Map& map) { map_ = map; }
    void setModifiers(std::uint8_t modifiers, std::uint8_t locked);

    /// Whether every key is grabbed from now on.
    void setHolding(bool isHolding);

    /// The grab of the moment ended before its key came up, so none tells of the release.
    void grabEnded();

    void rawPress(xcb_keycode_t key);
    void rawRelease(xcb_keycode_t key);
    void buttonPress();

    /// A press, repeat or release that a grab took, and the modifiers it came with.
    void grabbedPress(xcb_keycode_t key, std::uint8_t modifiers, bool isRepeat);
    void grabbedRelease(xcb_keycode_t key, std::uint8_t modifiers);

    /// Catches up with `state`: what was missed is told of, and counts as no tap.
    void resynchronise(const State& state);

private:
    struct Down {
        std::uint16_t toldAs = 0;
        bool isGrabbed = false;
    };

    void tell(InputEvent event);
    void tellKey(InputEvent::Kind kind, std::uint16_t code, std::uint8_t modifiers,
                 bool isRepeat = false);
    void tellModifier(std::uint16_t code, std::uint64_t released);
    void tellCapsLock();
    void tellNone();
    void settle();
    void catchUpWith(const Keys& down);

    [[nodiscard]] bool isWanted(std::uint16_t code, std::uint64_t flags) const;
    [[nodiscard]] std::uint16_t codeOf(xcb_keycode_t key) const;
    [[nodiscard]] std::uint64_t flags(std::uint8_t modifiers) const;
    [[nodiscard]] std::uint64_t heldFlags() const;

    TapRequest request_;
    EventTap::Handler handler_;
    Map map_;
    std::uint8_t modifiers_ = 0;
    std::uint8_t locked_ = 0;
    bool isHolding_ = false;
    bool isOver_ = false;
    /// Modifier keys by their place, whatever the layout makes of them.
    Keys held_;
    std::map<xcb_keycode_t, Down> down_;
    /// A raw event that a grab's event should follow.
    std::optional<xcb_keycode_t> awaitedPress_;
    std::optional<xcb_keycode_t> awaitedRelease_;
};

} // namespace pello
