#include "app/ClientCommand.h"

#include "app/ControlClient.h"

#include <algorithm>
#include <iostream>
#include <string>

namespace pello {

int run(const ClientCommand& command) {
    std::string line = command.verb;
    if (!command.text.empty()) {
        line += ' ' + command.text;
        std::ranges::replace(line, '\n', ' '); // a request is one line
    }
    const auto answer = askRunningLauncher(controlSocketPath(), line);
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
