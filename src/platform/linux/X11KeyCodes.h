#pragma once

#include <xcb/xcb.h>

#include <cstdint>

/// Keys by their place on the keyboard: virtual codes, and those of X servers on Linux.
namespace pello::x11Keys {

inline constexpr xcb_keycode_t kEscape = 9;
inline constexpr xcb_keycode_t kLeftShift = 50;
inline constexpr xcb_keycode_t kCapsLock = 66;

/// The virtual code of `key`; `virtualKeys::kNone` when it has none.
[[nodiscard]] std::uint16_t virtualKey(xcb_keycode_t key);

/// The key with this virtual code; 0 when no keyboard here has it.
[[nodiscard]] xcb_keycode_t keyOf(std::uint16_t virtualKey);

/// The flag of the modifier that the key with this virtual code is for, whichever the layout makes
/// of it, and none for other keys. Caps Lock counts as none.
[[nodiscard]] std::uint64_t modifierOf(std::uint16_t virtualKey);

/// The flag that tells that this key of a pair is down, none for keys on the left.
[[nodiscard]] std::uint64_t sideOf(std::uint16_t virtualKey);

} // namespace pello::x11Keys
