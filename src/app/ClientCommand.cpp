#include "app/ClientCommand.h"

#include "app/ControlClient.h"

#include <iostream>

namespace pello {

int run(const ClientCommand& command) {
    const auto answer = askRunningLauncher(controlSocketPath(), command.verb);
    if (!answer) {
        std::cerr << "pello: no launcher is running\n";
        return ExitStatus::kNotRunning;
    }
    if (*answer != kDone) {
        std::cerr << "pello: " << (answer->empty() ? "the launcher does not answer" : *answer)
                  << '\n';
        return ExitStatus::kNothing;
    }
    return ExitStatus::kSuccess;
}

} // namespace pello
