#include "app/TerminalCommand.h"

#include "app/HeadlessPlatform.h"
#include "app/Launcher.h"
#include "ui/terminal/TerminalFrontEnd.h"

#include <iostream>

namespace pello {

int run(const TerminalCommand& /*command*/) {
    HeadlessPlatform platform(LinuxServices::Session::connected);
    Launcher launcher(platform.ports());
    launcher.controller().reindex();
    TerminalFrontEnd(launcher.controller(), [&] { platform.turn(); }, std::cin, std::cout).run();
    return platform.defaults().flush() ? ExitStatus::kSuccess : ExitStatus::kNothing;
}

} // namespace pello
