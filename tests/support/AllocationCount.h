#pragma once

#include <cstddef>

namespace pello::testing {

/// How many times this program allocated memory so far. Linking this in replaces the global
/// allocation functions by ones that count.
[[nodiscard]] std::size_t allocationCount();

} // namespace pello::testing
