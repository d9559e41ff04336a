#pragma once

#include <optional>
#include <string>

namespace pello {

/// Why windows cannot be shown, as a sentence; nothing when they can, as far as one can tell. To be
/// asked before Qt's application object is made, which ends the program where it finds no display.
[[nodiscard]] std::optional<std::string> displayProblem();

} // namespace pello
