#include "core/settings/NumberRange.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pello {
namespace {

using KeyedRange = std::pair<std::string_view, NumberRange>;

constexpr std::array kRanges{
    KeyedRange{"maximumResults", {.least = 1, .most = 50}},
    KeyedRange{"fontSize", {.least = 8, .most = 72}},
    KeyedRange{"switcherIconSize", {.least = 12, .most = 128}},
    KeyedRange{"commandTabIconSize", {.least = 12, .most = 128}},
};

} // namespace

NumberRange NumberRange::of(std::string_view key) {
    const auto* const range =
        std::find_if(kRanges.begin(), kRanges.end(),
                     [key](const KeyedRange& entry) { return entry.first == key; });
    return range != kRanges.end() ? range->second : NumberRange{};
}

std::string NumberRange::words() const {
    return "from " + std::to_string(least) + " to " + std::to_string(most);
}

} // namespace pello
