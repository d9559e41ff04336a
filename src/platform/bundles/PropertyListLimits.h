#pragma once

#include <string_view>

/// Looks at the shape of a property list before a parser that trusts it builds anything.
namespace pello {

/// Whether the nesting and the written-out size of the XML or binary list in `bytes` stay within
/// the limits of PropertyList.h. A list that is damaged may pass or not; one that passes is safe to
/// parse recursively.
[[nodiscard]] bool isWithinPropertyListLimits(std::string_view bytes);

} // namespace pello
