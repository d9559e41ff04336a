#pragma once

#include "base/RawValues.h"

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// Where a query goes that matches nothing else.
enum class WebSearchEngine { duckDuckGo, google, kagi, bing };

/// The engine's name as rows show it.
[[nodiscard]] std::string_view displayName(WebSearchEngine engine);

/// The address that searches for `query` with `engine`. Unlike a bang's, it keeps what is allowed
/// in the query of an address as it stands ("&", "=", "+").
[[nodiscard]] std::optional<std::string> searchAddress(WebSearchEngine engine,
                                                       std::string_view query);

template <>
struct RawValues<WebSearchEngine> {
    static constexpr std::array names{"duckDuckGo", "google", "kagi", "bing"};
};

} // namespace pello
