#pragma once

#include <optional>
#include <string>

namespace pello {

/// Why no program can listen to the keyboard of this desktop, as a sentence that says what to do
/// instead; nothing when one can. Waits for the server.
[[nodiscard]] std::optional<std::string> listeningObstacle();

} // namespace pello
