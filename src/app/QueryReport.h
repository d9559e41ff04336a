#pragma once

#include "app/CommandLine.h"
#include "search/SearchExplanation.h"

#include <span>
#include <string>

namespace pello {

/// The rows as `pello query` prints them, ending in a line break unless there are none.
///
/// As text, a line per row: the title and, after a tab, the subtitle; explanations below it,
/// indented. As JSON, one object with a list "results"; a score beyond all numbers is null.
[[nodiscard]] std::string queryReport(std::span<const SearchExplanation> rows,
                                      const QueryCommand& command);

} // namespace pello
