#pragma once

#include "platform/MainLoop.h"
#include "platform/Processes.h"

#include <map>
#include <optional>
#include <set>

namespace pello {

/// Programs that do what they are told to, on the main loop's time.
class MemoryProcesses final : public Processes {
public:
    /// A process, as it was started and as it is asked to end.
    struct Process {
        Program program;
        int terminations = 0;
        int kills = 0;
        /// Empty once it has ended.
        Ended ended;
    };

    /// `loop` must outlive this object.
    explicit MemoryProcesses(MainLoop& loop) : loop_(loop) {}

    Handle start(const Program& program, Ended ended) override;
    void terminate(Handle process) override;
    void kill(Handle process) override;

    /// Ends a process that runs.
    void end(Handle process, const ProcessResult& result);

    /// The program files that there are, each with the result that it ends with in the next turn
    /// of the loop; those without one run until they are ended.
    std::map<std::filesystem::path, std::optional<ProcessResult>> programs;

    /// Program files that do not end when asked to.
    std::set<std::filesystem::path> stubborn;

    /// Everything that was started, by its handle.
    std::map<Handle, Process> started;

private:
    /// Ends a process in a later turn of the loop, if it still runs then.
    void endLater(Handle process, ProcessResult result);

    MainLoop& loop_;
    Handle newest_ = 0;
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
