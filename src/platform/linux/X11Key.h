#pragma once

#include "platform/linux/XcbXkb.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace pello {

/// What one key of one keyboard does, as the X keyboard extension has it: its symbols, its actions,
/// which of its parts were set by hand, and the modifiers that it is mapped to. A plain value.
struct X11Key {
    /// How many of each part `parts` holds.
    std::uint16_t symbols = 0;
    std::uint16_t actions = 0;
    std::uint8_t handSet = 0;
    std::uint8_t modifierMaps = 0;
    /// The parts one after the other, in the form that the server sends and takes.
    std::vector<std::uint8_t> parts;

    friend bool operator==(const X11Key&, const X11Key&) = default;

    /// One that types nothing and sets `mask` of the real modifiers while it is held.
    [[nodiscard]] static X11Key settingModifiers(xcb_keycode_t key, std::uint8_t mask);

    /// The action that the key has without modifiers; nothing when it has none.
    [[nodiscard]] std::optional<xcb_xkb_action_t> firstAction() const;

    /// Whether it sets exactly `mask` of the real modifiers while it is held.
    [[nodiscard]] bool setsModifiers(std::uint8_t mask) const;

    /// Whether `parts` has the length that the counts tell of.
    [[nodiscard]] bool isWhole() const;
};

/// What `key` does on the keyboard `device`; nothing when the server cannot tell. Waits for it.
[[nodiscard]] std::optional<X11Key> readKey(xcb_connection_t* connection,
                                            xcb_xkb_device_spec_t device, xcb_keycode_t key);

/// Makes `key` do that. Whether the server took it; waits for it.
[[nodiscard]] bool writeKey(xcb_connection_t* connection, xcb_xkb_device_spec_t device,
                            xcb_keycode_t key, const X11Key& content);

} // namespace pello
