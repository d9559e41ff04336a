#pragma once

#include "platform/linux/KeeperReport.h"
#include "platform/linux/ProcessPlan.h"

#include <string>

namespace pello {

/// Why the program of `plan` could not be started, in words, as the part of a sentence, by the
/// error number that the system gave. Looks at the program's file. Any thread.
[[nodiscard]] std::string whyNotStarted(const ProcessPlan& plan, KeeperReport::Outcome outcome,
                                        int error);

} // namespace pello
