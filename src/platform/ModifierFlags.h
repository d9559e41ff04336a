#pragma once

#include <cstdint>

/// The flags of modifier keys in input events: a set of bits. The same values on every desktop.
namespace pello::modifiers {

/// The Caps Lock state: the lock is on.
inline constexpr std::uint64_t kCapsLock = 0x10000;
inline constexpr std::uint64_t kShift = 0x20000;
inline constexpr std::uint64_t kControl = 0x40000;
/// Alt, where keys are called so.
inline constexpr std::uint64_t kOption = 0x80000;
/// Super, where keys are called so.
inline constexpr std::uint64_t kCommand = 0x100000;

/// The four that shortcuts are made of.
inline constexpr std::uint64_t kShortcutMask = kShift | kControl | kOption | kCommand;

/// Which of a pair of keys is down: set beside the flag of its class.
inline constexpr std::uint64_t kRightCommandSide = 0x10;
inline constexpr std::uint64_t kRightOptionSide = 0x40;
inline constexpr std::uint64_t kRightControlSide = 0x2000;

} // namespace pello::modifiers
