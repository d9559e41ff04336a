#pragma once

#include "platform/InputEvent.h"

#include <string>

namespace pello {

/// One event of the keyboard as a line for people: what happened, the key's virtual code, and the
/// modifiers that are down.
[[nodiscard]] std::string keyLine(const InputEvent& event);

} // namespace pello
