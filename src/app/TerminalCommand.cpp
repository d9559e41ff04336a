#include "app/TerminalCommand.h"

#include "app/HeadlessPlatform.h"
#include "app/HeldSignals.h"
#include "app/Launcher.h"
#include "app/QuitSignals.h"
#include "app/SilencedErrors.h"
#include "app/TerminalInput.h"
#include "app/TerminalPlatform.h"
#include "app/TerminalRescue.h"
#include "app/TerminalUpdates.h"
#include "ui/terminal/CursesPainter.h"
#include "ui/terminal/LineFrontEnd.h"
#include "ui/terminal/TerminalWindow.h"

#include <QCoreApplication>
#include <sys/ioctl.h>

#include <array>
#include <clocale>
#include <csignal>
#include <iostream>
#include <langinfo.h>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

namespace pello {
namespace {

int converseInLines() {
    // Whoever reads this program's output in a pipe wants no control sequences in it.
    std::ostream* terminal = ::isatty(STDOUT_FILENO) != 0 ? &std::cout : nullptr;
    HeadlessPlatform platform(
        {.session = LinuxServices::Session::fromTerminal, .terminal = terminal});
    Launcher launcher(platform.ports());
    launcher.controller().reindex();
    LineFrontEnd(launcher.controller(), [&] { platform.turn(); }, std::cin, std::cout).run();
    return platform.defaults().flush() ? ExitStatus::kSuccess : ExitStatus::kNothing;
}

/// Characters are UTF-8 here, also where nobody has said so.
void chooseLocale() {
    std::setlocale(LC_CTYPE, "");
    if (std::string_view(::nl_langinfo(CODESET)) != "UTF-8") {
        std::setlocale(LC_CTYPE, "C.UTF-8");
    }
}

std::optional<TerminalSize> terminalSize() {
    winsize size = {};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0 || size.ws_col == 0) {
        return std::nullopt;
    }
    return TerminalSize{.rows = size.ws_row, .columns = size.ws_col};
}

void runLauncher(CursesPainter& painter, QuitSignals& quits, HeldSignals& resizes) {
    TerminalPlatform platform(std::cout);
    Launcher launcher(platform.ports());
    TerminalWindow window(launcher.controller(), launcher.scriptFailures(), platform.dialogs(),
                          platform.loop(),
                          {.paint = [&](const TerminalScreen& screen) { painter.paint(screen); },
                           .forget = [&] { painter.forget(); },
                           .suspend = [] { ::kill(0, SIGTSTP); },
                           .end = [] { QCoreApplication::quit(); }});
    const TerminalUpdates updates(launcher.controller(), platform.loop());
    const TerminalInput input([&](std::string_view bytes) { window.type(bytes); },
                              [] { QCoreApplication::quit(); });
    quits.deliver([] { QCoreApplication::quit(); });
    resizes.deliver([&] {
        if (const auto size = terminalSize()) {
            painter.resize(*size);
            window.resize(*size);
        }
    });
    window.resize(painter.size());
    launcher.controller().reindex();
    launcher.controller().show();
    QCoreApplication::exec();
    quits.stop();
    resizes.stop();
    platform.ports().defaults.flush();
}

/// Nothing when this terminal is of no known kind.
std::optional<int> runInWindow() {
    QuitSignals quits;
    HeldSignals resizes({SIGWINCH});
    const TerminalRescue rescue;
    const auto painter = CursesPainter::open();
    if (painter == nullptr) {
        return std::nullopt;
    }
    TerminalRescue::arm(CursesPainter::leavingSequence());
    const SilencedErrors errors; // they would be written over the rows
    int count = 1;
    std::string name = "pello";
    std::array<char*, 2> arguments = {name.data(), nullptr};
    const QCoreApplication application(count, arguments.data());
    chooseLocale(); // the toolkit has chosen one too
    runLauncher(*painter, quits, resizes);
    return ExitStatus::kSuccess;
}

} // namespace

int run(const TerminalCommand& /*command*/) {
    if (::isatty(STDIN_FILENO) != 0 && ::isatty(STDOUT_FILENO) != 0) {
        chooseLocale();
        if (const auto status = runInWindow()) {
            return *status;
        }
    }
    return converseInLines();
}

} // namespace pello
