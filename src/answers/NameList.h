#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pello {

/// What is wrong with `names` that must differ: those that occur more than once, in order and each
/// named once ("g, yt appear more than once"). Nothing when all differ.
[[nodiscard]] std::optional<std::string> repetitionProblem(std::vector<std::string> names);

} // namespace pello
