#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Prints the answer alone, one line for each converter that has one. Returns the exit status;
/// without an answer nothing is printed.
[[nodiscard]] int run(const AnswerCommand& command);

} // namespace pello
