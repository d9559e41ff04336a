#pragma once

#include "platform/Processes.h"

#include <map>
#include <memory>
#include <unistd.h>

namespace pello {

/// The programs of this machine, each in a session of its own.
///
/// What a program prints waits on the disk until it ends, in files without a name: that takes as
/// much room there as it prints.
class SpawnedProcesses final : public Processes {
public:
    Handle start(const Program& program, Ended ended) override;
    void terminate(Handle process) override;
    void kill(Handle process) override;

private:
    void signal(Handle process, int number) const;

    Handle newest_ = 0;
    /// Those that run.
    std::map<Handle, pid_t> running_;
    /// What ends that are still to be told belong to.
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
