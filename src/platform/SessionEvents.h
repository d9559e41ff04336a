#pragma once

#include "base/Signal.h"

#include <string>

namespace pello {

/// Tells when something happened to the user's session after which what was claimed of the
/// keyboard may be gone. Main thread only.
class SessionEvents {
public:
    /// The reason given when displays came, went or changed.
    static constexpr const char* kScreensChanged = "screen parameters changed";

    virtual ~SessionEvents() = default;

    /// The machine or its screens woke, the session became the active one (unlocked, switched to),
    /// or the displays changed. The reason is for the log: the system's name for the event, or
    /// `kScreensChanged`.
    Signal<const std::string&> resumed;
};

} // namespace pello
