#include "platform/linux/ThisProgram.h"

#include "platform/PelloLog.h"
#include "platform/linux/DetachedProcess.h"
#include "platform/linux/FileDescriptor.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace pello {
namespace {

std::string inWords(int error) {
    return std::generic_category().message(error);
}

/// Starts the file of this process and waits until that runs. Why it does not, if it does not.
std::optional<std::string> startAgain() {
    std::error_code error;
    const auto file = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        return error.message();
    }
    const StartedProcess started = startDetached({.program = file,
                                                  .arguments = {file.string()},
                                                  .environment = Environment::ofThisProcess(),
                                                  .folder = "/"});
    const FileDescriptor outcome(started.outcome);
    if (!outcome) {
        return inWords(started.error);
    }
    int failure = 0;
    ssize_t length = 0;
    do {
        length = ::read(outcome.number(), &failure, sizeof failure);
    } while (length < 0 && errno == EINTR);
    return length == sizeof failure ? std::optional(inWords(failure)) : std::nullopt;
}

} // namespace

ThisProgram::ThisProgram(MainLoop& loop, std::function<void()> terminate)
    : loop_(loop), terminate_(std::move(terminate)) {}

std::string ThisProgram::identifier() const {
    return std::string(PelloLog::kSubsystem);
}

void ThisProgram::openNewInstance(Opened opened) {
    loop_.background(startAgain, [opened = std::move(opened), alive = std::weak_ptr(alive_)](
                                     const std::optional<std::string>& error) {
        if (!alive.expired()) {
            opened(error);
        }
    });
}

} // namespace pello
