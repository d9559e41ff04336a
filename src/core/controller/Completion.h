#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// What is missing from `query` to make `title`, ignoring case and comparing by characters; nothing
/// when the title does not begin with the query, or has nothing beyond it.
[[nodiscard]] std::optional<std::string> completion(std::string_view query, std::string_view title);

} // namespace pello
