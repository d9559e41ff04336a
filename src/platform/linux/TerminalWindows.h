#pragma once

#include <string>
#include <vector>

namespace pello {

/// Whether a window with these class names, in lower case, belongs to a terminal emulator: Ctrl+V
/// is for the program inside, and Ctrl+Shift+V pastes.
[[nodiscard]] bool isTerminalWindow(const std::vector<std::string>& classNames);

} // namespace pello
