#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Prints the glyphs that the text finds. Returns the exit status.
[[nodiscard]] int run(const GlyphCommand& command);

} // namespace pello
