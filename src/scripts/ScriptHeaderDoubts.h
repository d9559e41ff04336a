#pragma once

#include "scripts/ScriptHeader.h"

#include <string>
#include <vector>

namespace pello {

/// What its author may have meant otherwise: keys that are none and values that are not understood,
/// each as a sentence without its end.
[[nodiscard]] std::vector<std::string> scriptHeaderDoubts(const ScriptHeaderValues& values);

} // namespace pello
