#pragma once

#include "core/items/SearchResult.h"
#include "scripts/ScriptsIndex.h"

#include <string_view>
#include <vector>

namespace pello {

/// What the panel shows while the argument of `command` is being typed: the row that runs it with
/// `typed`, and no row while that is blank. `scripts` must outlive the row.
[[nodiscard]] std::vector<SearchResult>
argumentRow(const ScriptsIndex& scripts, const ScriptCommand& command, std::string_view typed);

} // namespace pello
