#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

/// Offsets from Coordinated Universal Time as they are typed and shown.
namespace pello::UtcOffset {

/// The offset that `text` (lower case) spells: "utc+5", "gmt -3:30", "utc+0530". Nothing when it is
/// anything else, or beyond the offsets in use, -12:00 to +14:00.
[[nodiscard]] std::optional<std::chrono::minutes> read(std::string_view text);

/// "UTC+5", "UTC-3:30", "UTC".
[[nodiscard]] std::string name(std::chrono::minutes offset);

} // namespace pello::UtcOffset
