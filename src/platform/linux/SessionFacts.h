#pragma once

#include "platform/linux/Environment.h"

namespace pello {

/// Which services of a freedesktop session are there, for people who look for a fault.
struct SessionFacts {
    bool hasBus = false;
    /// Shows notifications, or is started for the first one.
    bool hasNotifications = false;
    /// Shows the icons of programs.
    bool hasTray = false;
    /// Tells programs of each other's menus.
    bool hasAccessibility = false;
    bool hasSound = false;

    /// Of the session that `environment` belongs to. Asks, and waits some seconds at most. Needs
    /// the toolkit's application object to exist.
    [[nodiscard]] static SessionFacts read(const Environment& environment);
};

} // namespace pello
