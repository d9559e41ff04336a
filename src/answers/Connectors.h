#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace pello {

/// Whether `word`, in lower case, separates what is converted from what it is converted to.
[[nodiscard]] constexpr bool isConnector(std::string_view word) {
    constexpr std::array<std::string_view, 7> kConnectors = {"in", "to", "as", "into",
                                                             "=",  "->", "→"};
    return std::find(kConnectors.begin(), kConnectors.end(), word) != kConnectors.end();
}

} // namespace pello
