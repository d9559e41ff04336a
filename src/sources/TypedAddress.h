#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// The address that `text` is, when it is one that people type: of a scheme that a launcher opens,
/// or a host name with a dot ("example.org/a"), which becomes a secure web address. Any thread.
[[nodiscard]] std::optional<std::string> detectURL(std::string_view text);

} // namespace pello
