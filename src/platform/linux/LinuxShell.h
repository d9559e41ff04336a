#pragma once

#include "platform/MainLoop.h"
#include "platform/Shell.h"

#include <functional>
#include <map>
#include <memory>

namespace pello {

/// The system's tools, with functions of this program in the place of those that this system lacks.
class LinuxShell final : public Shell {
public:
    using StandIn = std::function<Result(const std::vector<std::string>& arguments)>;

    /// `standIns` by the path of the tool. `loop` must outlive the shell.
    LinuxShell(MainLoop& loop, std::map<std::string, StandIn> standIns)
        : loop_(loop), standIns_(std::move(standIns)) {}

    /// A tool that prints without an end or never ends is given up after half a minute.
    void run(const std::string& path, const std::vector<std::string>& arguments,
             Completion completion) override;
    Result runSynchronously(const std::string& path,
                            const std::vector<std::string>& arguments) override;

private:
    MainLoop& loop_;
    std::map<std::string, StandIn> standIns_;
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
