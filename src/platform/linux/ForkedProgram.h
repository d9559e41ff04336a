#pragma once

#include "platform/linux/ProcessPlan.h"

#include <csignal>
#include <string>
#include <vector>

/// What goes on between `fork` and `execve`. There, only async-signal-safe calls are allowed: the
/// functions for that place say so.
namespace pello {

/// What `execve` takes, laid out beforehand, pointing into a plan that must outlive it.
class ExecLayout {
public:
    explicit ExecLayout(const ProcessPlan& plan);

    /// Makes the plan's folder the current one; false, with `errno` set, when that fails. For the
    /// place after a fork.
    [[nodiscard]] bool enterFolder() const;

    /// Becomes the plan's program. Returns only on failure, with `errno` set. For the place after a
    /// fork.
    void execute() const;

private:
    const char* program_;
    const char* folder_;
    std::vector<std::string> lines_;
    std::vector<char*> arguments_;
    std::vector<char*> environment_;
};

/// Blocks every signal while it lives: no handler of this program may run in a child.
class SignalsBlocked {
public:
    SignalsBlocked();
    ~SignalsBlocked();
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_{};
};

/// Handles no signal otherwise than by default, and blocks none. For the place after a fork.
void resetSignals();

/// Leads the standard streams nowhere. For the place after a fork.
void resetStandardStreams();

/// What happens to descriptors.
enum class DescriptorFate { closeNow, closeOnExec };

/// Does that to every descriptor from `first` on. For the place after a fork.
void endDescriptors(int first, DescriptorFate fate);

} // namespace pello
