#pragma once

#include "platform/MainLoop.h"
#include "platform/Shell.h"

#include <map>

namespace pello {

/// Tools that are functions, on the main loop's time.
class MemoryShell final : public Shell {
public:
    using Tool = std::function<Result(const std::vector<std::string>& arguments)>;

    /// `loop` must outlive this object.
    explicit MemoryShell(MainLoop& loop) : loop_(loop) {}

    void run(const std::string& path, const std::vector<std::string>& arguments,
             Completion completion) override;
    Result runSynchronously(const std::string& path,
                            const std::vector<std::string>& arguments) override;

    /// The tools that there are, by path. The others cannot be run: status 127.
    std::map<std::string, Tool> tools;

    /// What was run so far, as "path argument argument", in the order of running.
    std::vector<std::string> commands;

private:
    MainLoop& loop_;
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
