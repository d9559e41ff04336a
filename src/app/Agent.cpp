#include "app/Agent.h"

#include "app/ControlClient.h"
#include "app/ControlServer.h"
#include "app/DesktopPlatform.h"
#include "app/Launcher.h"
#include "app/QuitSignals.h"
#include "app/Version.h"
#include "platform/linux/X11Display.h"
#include "ui/panel/PanelWindow.h"

#include <QApplication>

#include <iostream>

namespace pello {
namespace {

/// The launcher with its panel, and who may tell it what to do.
class Agent {
public:
    explicit Agent(QApplication& application)
        : application_(application),
          launcher_(platform_.ports()),
          panel_(launcher_.controller(), platform_.icons(), platform_.compositor()),
          server_([this](std::string_view verb) { return answer(verb); }) {}

    /// Answers at `socket` from now on, and fills the catalogue. False when the socket cannot be
    /// had.
    [[nodiscard]] bool start(const std::string& socket, const AgentCommand& command) {
        if (!server_.listen(socket)) {
            return false;
        }
        launcher_.controller().reindex();
        if (command.showsPanel) {
            launcher_.controller().show();
        }
        return true;
    }

    /// Writes what is not written yet.
    void finish() { platform_.ports().defaults.flush(); }

private:
    using Answer = ControlServer::Answer;

    Answer answer(std::string_view verb) {
        if (verb == "toggle") {
            launcher_.controller().toggle();
            return {.line = std::string(kDone)};
        }
        if (verb == "quit") {
            platform_.ports().loop.post([this] { application_.quit(); });
            return {.line = std::string(kDone), .then = Answer::Then::holdTheLine};
        }
        return {.line = "the running launcher does not know \"" + std::string(verb) + '"'};
    }

    QApplication& application_;
    DesktopPlatform platform_;
    Launcher launcher_;
    PanelWindow panel_;
    ControlServer server_;
};

} // namespace

int runAgent(const AgentCommand& command, int argc, char** argv) {
    if (const auto problem = displayProblem()) {
        std::cerr << "pello: " << *problem << " \"pello terminal\" needs none.\n";
        return ExitStatus::kNothing;
    }
    const std::string socket = controlSocketPath();
    // Before anything is read: the older one writes what it knows as it ends.
    (void)askRunningLauncher(socket, "quit");
    QuitSignals signals;
    QApplication application(argc, argv);
    QApplication::setApplicationName("Pello");
    QApplication::setApplicationVersion(kVersion);
    QApplication::setDesktopFileName("is.tolva.pello");
    QApplication::setQuitOnLastWindowClosed(false);
    signals.deliver([] { QApplication::quit(); });
    Agent agent(application);
    int status = ExitStatus::kNothing;
    if (agent.start(socket, command)) {
        status = QApplication::exec();
        agent.finish();
    } else {
        std::cerr << "pello: cannot listen at \"" << socket << "\"\n";
    }
    signals.stop();
    return status;
}

} // namespace pello
