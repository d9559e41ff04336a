#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Looks at everything that the launcher needs and prints a line for each. The exit status tells
/// whether something that is switched on does not work.
int run(const DoctorCommand& command);

} // namespace pello
