#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Prints what the launcher would hear of the keyboard, until it is interrupted: codes of keys and
/// modifiers, never what they type. Nothing is taken from other programs.
int run(const KeysCommand& command);

} // namespace pello
