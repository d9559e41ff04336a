#include "app/client/ClientCommand.h"

#include "app/client/ControlClient.h"
#include "app/client/ExitStatus.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace pello {

int run(const ClientCommand& command) {
    std::string line = command.verb;
    if (!command.text.empty()) {
        line += ' ' + command.text;
        std::replace(line.begin(), line.end(), '\n', ' '); // a request is one line
    }
    const auto answer = askRunningLauncher(controlSocketPath(), line);
    if (!answer) {
        std::fputs("pello: no launcher is running\n", stderr);
        return ExitStatus::kNotRunning;
    }
    if (*answer != kDone) {
        const std::string complaint = answer->empty() ? "the launcher does not answer" : *answer;
        std::fprintf(stderr, "pello: %s\n", complaint.c_str());
        return ExitStatus::kNothing;
    }
    return ExitStatus::kSuccess;
}

} // namespace pello
