#pragma once

#include "platform/Processes.h"

#include <map>
#include <memory>

namespace pello {

struct ProcessPlan;

/// The programs of this machine. Needs Qt's event loop on this thread.
///
/// Each runs under a keeper, a process that outlives this one; see ProcessKeeper.h.
class PosixProcesses final : public Processes {
public:
    PosixProcesses();
    ~PosixProcesses() override;
    PosixProcesses(const PosixProcesses&) = delete;
    PosixProcesses& operator=(const PosixProcesses&) = delete;

    Handle start(const Program& program, Ended ended) override;
    void terminate(Handle process) override;
    void kill(Handle process) override;

private:
    class Line;
    struct Context;

    /// Tells of a failure in a later turn of the loop.
    void failLater(Ended ended, std::string reason);
    void request(Handle process, char what);

    Handle newest_ = 0;
    /// Those that run.
    std::map<Handle, std::unique_ptr<Line>> lines_;
    std::unique_ptr<Context> context_;
};

} // namespace pello
