#pragma once

#include "platform/linux/DesktopEntry.h"
#include "platform/linux/DetachedProcess.h"

#include <filesystem>
#include <string>
#include <variant>

namespace pello {

/// Why an application cannot be started, as the end of a sentence: "its program is not installed".
struct LaunchProblem {
    std::string reason;

    friend bool operator==(const LaunchProblem&, const LaunchProblem&) = default;
};

/// The name that `entry`, which lies at `file`, shows to users.
[[nodiscard]] std::string shownName(const DesktopEntry& entry, const std::filesystem::path& file,
                                    const Environment& environment);

/// How the program of `entry`, which lies at `file`, is started in a session with `environment`: in
/// a terminal if it asks for one, in its own folder or the user's home.
[[nodiscard]] std::variant<ProcessPlan, LaunchProblem> launchPlan(const DesktopEntry& entry,
                                                                  const std::filesystem::path& file,
                                                                  const Environment& environment);

/// How a plain command is started in that session.
[[nodiscard]] std::variant<ProcessPlan, LaunchProblem>
commandPlan(std::vector<std::string> arguments, const Environment& environment);

} // namespace pello
