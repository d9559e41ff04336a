#pragma once

#include "app/HeldSignals.h"

#include <csignal>

namespace pello {

/// The signals that ask a process to end (hangup, interrupt, terminate) as an ordinary event, so
/// that the program ends by its own means. One object at a time.
class QuitSignals final : public HeldSignals {
public:
    QuitSignals() : HeldSignals({SIGHUP, SIGINT, SIGTERM}) {}
};

} // namespace pello
