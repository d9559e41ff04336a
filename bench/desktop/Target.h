#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace pello::bench {

/// One launcher, and how it is started, summoned and hidden. Times are in milliseconds.
struct Target {
    std::string start;       ///< Ends with the window on the screen.
    std::string daemon;      ///< Starts without a window; empty for one that ends when it closes.
    std::string summon;      ///< The command that shows the window of the resident one,
    std::string summonKey;   ///< or the keys that do: "Control_L+space".
    std::string windowClass; ///< An extended regular expression on WM_CLASS, ignoring case.
    std::vector<std::string> phases{"cold", "warm", "key", "memory", "idle"};
    std::vector<std::string> queries{"editor", "calc", "mail", "term"};
    int trials = 12;
    int keyTrials = 30;
    int idleSeconds = 30;
    int mostDismissals = 4; ///< How often Escape is pressed to hide it.
    double quiet = 250;     ///< So long nothing changes once a reaction is complete.
    int caretWidth = 0;     ///< Changes no larger than these are a blinking caret, and ignored.
    int caretHeight = 0;

    [[nodiscard]] bool isResident() const { return !daemon.empty(); }
    [[nodiscard]] bool has(const std::string& phase) const;
};

// NOLINTNEXTLINE(misc-const-correctness): what the macro makes
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT(Target, start, daemon, summon, summonKey,
                                                windowClass, phases, queries, trials, keyTrials,
                                                idleSeconds, mostDismissals, quiet, caretWidth,
                                                caretHeight)

} // namespace pello::bench
