#pragma once

#include "app/KeyboardReport.h"
#include "platform/linux/SessionFacts.h"
#include "platform/linux/X11ServerFacts.h"

#include <optional>
#include <string>
#include <vector>

namespace pello {

/// One thing that was looked at.
struct Finding {
    enum class Verdict {
        ok,
        /// Not there, and not needed by anything that is switched on.
        absent,
        /// Something that is switched on does not work for want of it.
        wrong
    };

    Verdict verdict = Verdict::ok;
    std::string subject;
    /// What it is like, or what to do.
    std::string text;

    friend bool operator==(const Finding&, const Finding&) = default;
};

/// What was learned about the program and its desktop. A plain value.
struct Diagnosis {
    /// Nothing where there is no X server.
    std::optional<X11ServerFacts> display;
    SessionFacts session;
    /// What the running launcher says; nothing when none runs.
    std::optional<KeyboardReport> keyboard;
    /// The user wants scripts, which tell of themselves by notifications.
    bool usesNotifications = true;

    /// One finding for each thing, in the order in which to mend them.
    [[nodiscard]] std::vector<Finding> findings() const;
};

} // namespace pello
