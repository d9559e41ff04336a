#pragma once

#include <memory>
#include <string>

namespace pello {

/// Gives the terminal back when the program crashes, as far as a signal handler can. One object at
/// a time, made before anything changes the terminal's modes.
class TerminalRescue {
public:
    TerminalRescue();
    ~TerminalRescue();
    TerminalRescue(const TerminalRescue&) = delete;
    TerminalRescue& operator=(const TerminalRescue&) = delete;

    /// What has to be written to the terminal too; nothing is rescued before this is known.
    static void arm(const std::string& leavingSequence);
};

} // namespace pello
