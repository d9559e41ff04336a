#pragma once

#include "platform/Shell.h"

#include <memory>

namespace pello {

/// The tools of this machine. They have nothing to read, and what they print as errors is lost.
/// A completion is not called when this object has gone before.
class TaskShell final : public Shell {
public:
    void run(const std::string& path, const std::vector<std::string>& arguments,
             Completion completion) override;
    Result runSynchronously(const std::string& path,
                            const std::vector<std::string>& arguments) override;

private:
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
