#pragma once

#include <cstdint>
#include <string_view>

namespace pello {

/// The symbol of a key that types no visible character, such as Return; empty for other keys.
[[nodiscard]] std::string_view specialKeyName(std::uint16_t keyCode);

/// "F1" to "F20" for the function keys; empty for other keys.
[[nodiscard]] std::string_view functionKeyName(std::uint16_t keyCode);

} // namespace pello
