#include "app/client/ClientArguments.h"
#include "app/client/ExitStatus.h"
#include "app/client/ProgramFiles.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <unistd.h>
#include <variant>

// `pello`: does what takes no more than a word to the running launcher, and becomes the full
// program for everything else. Links nothing that takes time to load.

namespace {

int becomeLauncher(char** argv) {
    const std::string launcher = pello::launcherFor(pello::programOfThisProcess());
    if (launcher.empty()) {
        std::fputs("pello: the program \"pello-launcher\", which belongs to this one, is missing\n",
                   stderr);
        return pello::ExitStatus::kNothing;
    }
    ::execv(launcher.c_str(), argv);
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread
    std::fprintf(stderr, "pello: %s: %s\n", launcher.c_str(), std::strerror(errno));
    return pello::ExitStatus::kNothing;
}

} // namespace

// An exception that gets this far is a fault of ours; ending at once tells of it best.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
    const auto count = static_cast<std::size_t>(argc > 0 ? argc - 1 : 0);
    const auto command = pello::quickCommand({argv + (argc > 0 ? 1 : 0), count});
    if (!command) {
        return becomeLauncher(argv);
    }
    return std::visit([](const auto& chosen) { return pello::run(chosen); }, *command);
}
