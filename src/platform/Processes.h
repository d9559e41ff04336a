#pragma once

#include "platform/EnvironmentVariables.h"
#include "platform/ProcessResult.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace pello {

/// Runs programs and tells how they end. Returns at once; main thread only.
///
/// A program is run directly, without a shell, in a process group of its own, with nothing to read.
/// It goes on when this object goes, and can go on printing; nobody is told of its end then.
class Processes {
public:
    /// A program to run.
    struct Program {
        /// Absolute.
        std::filesystem::path file;
        /// What it is called in its own arguments; by its file when empty.
        std::string calledAs;
        /// Without its own name.
        std::vector<std::string> arguments;
        /// The folder to start in.
        std::filesystem::path folder;
        EnvironmentVariables environment;
    };
    /// A process that was started here; never used again for another.
    using Handle = std::uint64_t;
    using Ended = std::function<void(const ProcessResult& result)>;

    virtual ~Processes() = default;

    /// Starts `program`. `ended` is called once, in a later turn of the loop: when the program has
    /// ended, soon after that even when processes that it left behind can still print, or when it
    /// could not be started.
    virtual Handle start(const Program& program, Ended ended) = 0;

    /// Asks the program and what it runs in its group to end. Nothing happens when it has ended.
    virtual void terminate(Handle process) = 0;

    /// Ends the program and what it runs in its group. Nothing happens when it has ended.
    virtual void kill(Handle process) = 0;
};

} // namespace pello
