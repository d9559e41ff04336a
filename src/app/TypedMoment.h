#pragma once

#include "base/Date.h"

#include <optional>
#include <string_view>

namespace pello {

/// The moment that `text` tells in the form of ISO 8601: "2026-11-21", "2026-11-21T16:53",
/// "2026-11-21T16:53:00Z", "2026-11-21T16:53:00+01:00". Without an offset, by this machine's time
/// zone. Nothing when it is anything else, or lies outside of the years 1 to 9999.
[[nodiscard]] std::optional<Date> typedMoment(std::string_view text);

} // namespace pello
