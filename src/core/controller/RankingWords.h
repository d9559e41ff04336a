#pragma once

#include "search/SearchExplanation.h"

#include <string>

namespace pello {

/// Why a row stands where it does, in one line for its user: what matched, what was learned, and
/// the points of each.
[[nodiscard]] std::string rankingWords(const SearchExplanation& explanation);

} // namespace pello
