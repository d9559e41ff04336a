#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace pello {

/// The names under which the cases of an enumeration are stored, in the order of the cases.
/// Specialise with a `static constexpr std::array names`.
template <class Enum>
struct RawValues;

/// The name under which `value` is stored.
template <class Enum>
[[nodiscard]] constexpr std::string_view rawValue(Enum value) {
    return RawValues<Enum>::names.at(static_cast<std::size_t>(value));
}

/// The case stored as `name`; nothing when there is none. Case-sensitive.
template <class Enum>
[[nodiscard]] constexpr std::optional<Enum> fromRawValue(std::string_view name) {
    for (std::size_t i = 0; i < RawValues<Enum>::names.size(); ++i) {
        if (std::string_view(RawValues<Enum>::names[i]) == name) {
            return static_cast<Enum>(i);
        }
    }
    return std::nullopt;
}

} // namespace pello
