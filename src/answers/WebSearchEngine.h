#pragma once

#include "base/RawValues.h"

namespace pello {

/// Where a query goes that matches nothing else.
enum class WebSearchEngine { duckDuckGo, google, kagi, bing };

template <>
struct RawValues<WebSearchEngine> {
    static constexpr std::array names{"duckDuckGo", "google", "kagi", "bing"};
};

} // namespace pello
