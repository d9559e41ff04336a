#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pello {

/// How much of a script's beginning is looked at, in bytes.
inline constexpr std::size_t kScriptHeaderBytes = 4096;

/// The first bytes of a script as the text that they are: without a byte-order mark, and without
/// the beginning of a character that the limit cut through. Empty when they are not UTF-8.
[[nodiscard]] std::string_view scriptHeader(std::string_view firstBytes);

} // namespace pello
