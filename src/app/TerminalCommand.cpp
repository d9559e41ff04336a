#include "app/TerminalCommand.h"

#include "app/HeadlessPlatform.h"
#include "app/Launcher.h"
#include "ui/terminal/TerminalFrontEnd.h"

#include <iostream>
#include <unistd.h>

namespace pello {

int run(const TerminalCommand& /*command*/) {
    // Whoever reads this program's output in a pipe wants no control sequences in it.
    std::ostream* terminal = ::isatty(STDOUT_FILENO) != 0 ? &std::cout : nullptr;
    HeadlessPlatform platform(
        {.session = LinuxServices::Session::fromTerminal, .terminal = terminal});
    Launcher launcher(platform.ports());
    launcher.controller().reindex();
    TerminalFrontEnd(launcher.controller(), [&] { platform.turn(); }, std::cin, std::cout).run();
    return platform.defaults().flush() ? ExitStatus::kSuccess : ExitStatus::kNothing;
}

} // namespace pello
