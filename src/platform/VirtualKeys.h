#pragma once

#include <cstdint>

/// The codes of keys in input events: positions on the keyboard, whatever the layout types there.
/// The same values on every desktop.
namespace pello::virtualKeys {

inline constexpr std::uint16_t kReturn = 36;
inline constexpr std::uint16_t kTab = 48;
inline constexpr std::uint16_t kSpace = 49;
inline constexpr std::uint16_t kEscape = 53;
inline constexpr std::uint16_t kRightCommand = 54;
inline constexpr std::uint16_t kLeftCommand = 55;
inline constexpr std::uint16_t kLeftShift = 56;
inline constexpr std::uint16_t kCapsLock = 57;
inline constexpr std::uint16_t kLeftOption = 58;
inline constexpr std::uint16_t kLeftControl = 59;
inline constexpr std::uint16_t kRightShift = 60;
inline constexpr std::uint16_t kRightOption = 61;
inline constexpr std::uint16_t kRightControl = 62;
/// F18: what Caps Lock sends while it is the Hyper key.
inline constexpr std::uint16_t kHyper = 79;
inline constexpr std::uint16_t kLeftArrow = 123;
inline constexpr std::uint16_t kRightArrow = 124;
/// Stands for keys that have no code here. No combo has it.
inline constexpr std::uint16_t kNone = 0xFFFF;

} // namespace pello::virtualKeys
