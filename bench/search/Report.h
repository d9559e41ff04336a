#pragma once

#include "search/BenchSearch.h"

#include <vector>

namespace pello::bench {

/// Prints one table: what was measured on each size, and the goals.
void print(const std::vector<Measurement>& measurements);

} // namespace pello::bench
