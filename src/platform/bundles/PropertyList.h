#pragma once

#include "base/PropertyValue.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Property lists as files hold them. Safe on any thread.
namespace pello {

/// What a property list may hold at most, so that a hostile or damaged file can exhaust neither
/// the stack nor the memory: containers within containers, and bytes once shared parts of a binary
/// list are written out (each value counts `kPropertyListNodeCost` besides its own bytes).
inline constexpr std::size_t kPropertyListDepth = 100;
inline constexpr std::size_t kPropertyListBytes = std::size_t{64} << 20;
inline constexpr std::size_t kPropertyListNodeCost = 64;

/// The value in `bytes`, an XML or binary property list. Nothing when the bytes are neither, are
/// damaged, or hold more than the limits above.
///
/// Strings are made well-formed UTF-8. An integer above the range of `std::int64_t` reads as a
/// real. Kinds that this program does not know (keyed-archive references) are left out.
[[nodiscard]] std::optional<PropertyValue> parsePropertyList(std::string_view bytes);

/// `value` as a binary property list; nothing when it is beyond the limits above.
///
/// Binary, because XML cannot carry everything: it has no form for control characters in strings,
/// drops the fractions of dates and the sign of zero. What `parsePropertyList` reads back is equal,
/// except that malformed UTF-8 and NUL in strings come back as U+FFFD and that dates keep
/// milliseconds, within 1933 to 2068; others are stored as the nearest date of that range.
[[nodiscard]] std::optional<std::string> serializePropertyList(const PropertyValue& value);

} // namespace pello
