#include "app/Agent.h"

#include "app/AgentAppearance.h"
#include "app/AgentChoice.h"
#include "app/AgentGuide.h"
#include "app/AgentKeyboard.h"
#include "app/AgentSettings.h"
#include "app/AgentUpdates.h"
#include "app/ControlServer.h"
#include "app/DesktopPlatform.h"
#include "app/Launcher.h"
#include "app/QuitSignals.h"
#include "app/Version.h"
#include "app/client/ControlClient.h"
#include "app/client/PickCommand.h"
#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/SingleInstance.h"
#include "platform/linux/SpareMemory.h"
#include "platform/linux/TrayHosts.h"
#include "platform/linux/X11Display.h"
#include "ui/accessible/AccessibleParts.h"
#include "ui/panel/PanelWindow.h"
#include "ui/tray/TrayIcon.h"

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <iostream>

namespace pello {
namespace {

// What an older launcher gets to write what it knows, before it is ended by force.
constexpr std::chrono::seconds kPatience{2};

// Until nothing of the launch goes on any more.
constexpr std::chrono::milliseconds kSettling{1500};

// What Qt's X11 plug-in draws OpenGL with.
constexpr const char* kGraphics = "QT_XCB_GL_INTEGRATION";

/// The launcher with its panel, and who may tell it what to do. Needs the application object.
class Agent {
public:
    explicit Agent(const std::filesystem::path& keyboardFolder)
        : launcher_(platform_.ports()),
          panel_(launcher_.controller(), platform_.icons(), platform_.compositor(),
                 launcher_.scriptFailures()),
          tray_(launcher_.controller(), launcher_.scriptFailures()),
          keyboard_(launcher_.controller(), platform_.ports(), keyboardFolder,
                    [] { QApplication::quit(); }),
          settings_(launcher_, platform_.ports(), keyboard_),
          guide_(launcher_, platform_.ports(), keyboard_, settings_, panel_),
          updates_(launcher_.controller(), platform_.ports()),
          server_([this](std::string_view verb) { return answer(verb); }) {
        panel_.setSettingsOpener([this] { settings_.present(); });
        server_.onText = [this](std::string_view verb, std::string text, auto caller) {
            const std::string_view prompt = verb.substr(std::min(kPickVerb.size(), verb.size()));
            if (verb.starts_with(kPickVerb)) {
                choice_.ask(prompt, std::move(text), std::move(caller));
            } else {
                caller->answer(unknown(verb).line);
            }
        };
        keyboard_.panelWindow = [this] { return static_cast<std::uint32_t>(panel_.winId()); };
        tray_.onSettings = [this] { settings_.present(); };
        tray_.onGuide = [this] { guide_.present(); };
    }

    /// Answers at `socket` from now on, and fills the catalogue. False when the socket cannot be
    /// had.
    [[nodiscard]] bool start(const std::string& socket, const AgentCommand& command) {
        if (!server_.listen(socket)) {
            return false;
        }
        keyboard_.start();
        launcher_.controller().reindex();
        if (command.showsPanel) {
            launcher_.controller().show();
        } else {
            guide_.openIfNeeded();
        }
        settled_ = platform_.ports().loop.after(kSettling, giveSpareMemoryBack);
        return true;
    }

    /// Gives the keyboard back, and writes what is not written yet.
    void finish(KeyboardControl::Successor successor) {
        keyboard_.finish(successor);
        platform_.ports().defaults.flush();
    }

private:
    using Answer = ControlServer::Answer;

    Answer answer(std::string_view line) {
        const std::string_view verb = line.substr(0, line.find(' '));
        const std::string_view text = line.substr(std::min(verb.size() + 1, line.size()));
        if (obey(verb, text)) {
            return {.line = std::string(kDone)};
        }
        if (verb == kReportVerb) {
            return {.line = keyboard_.report().line()};
        }
        if (verb == "quit") {
            platform_.ports().loop.post([] { QApplication::quit(); });
            return {.line = std::string(kDone), .then = Answer::Then::holdTheLine};
        }
        return unknown(verb);
    }

    static Answer unknown(std::string_view verb) {
        return {.line = "the running launcher does not know \"" + std::string(verb) + '"'};
    }

    /// Does what needs no answer. False for other verbs.
    bool obey(std::string_view verb, std::string_view text) {
        PelloController& controller = launcher_.controller();
        if (verb == "toggle") {
            controller.toggle();
        } else if (verb == "show") {
            controller.show(text);
        } else if (verb == "hide") {
            controller.hide();
        } else if (verb == "reindex") {
            controller.reindex();
        } else if (verb == "settings") {
            settings_.present(fromRawValue<SettingsTab>(text));
        } else if (verb == "guide") {
            guide_.present();
        } else {
            return verb == "ping";
        }
        return true;
    }

    AgentAppearance appearance_;
    DesktopPlatform platform_;
    Launcher launcher_;
    PanelWindow panel_;
    TrayIcon tray_;
    TrayHosts trayHosts_{sessionBus(Environment::ofThisProcess()), [this] { tray_.appear(); }};
    AgentKeyboard keyboard_;
    AgentSettings settings_;
    AgentGuide guide_;
    AgentUpdates updates_;
    AgentChoice choice_{launcher_.controller(), platform_.ports().loop};
    ControlServer server_;
    Subscription settled_;
};

} // namespace

int runAgent(const AgentCommand& command, int argc, char** argv) {
    if (const auto problem = displayProblem()) {
        std::cerr << "pello: " << *problem << " \"pello terminal\" needs none.\n";
        return ExitStatus::kNothing;
    }
    QuitSignals signals; // before anybody may ask this process to end
    const std::string socket = controlSocketPath();
    if (socket.empty()) {
        std::cerr << "pello: there is no folder of the user's own to listen in\n";
        return ExitStatus::kNothing;
    }
    // Before anything is read: the older one writes what it knows as it ends. Whoever has taken
    // over is the only one that listens, and the only one that may remove the socket.
    SingleInstance instance(socket + ".lock");
    if (const std::string problem = instance.takeOver(kPatience); !problem.empty()) {
        std::cerr << "pello: " << problem << '\n';
        return ExitStatus::kNothing;
    }
    const bool choosesGraphics = qEnvironmentVariableIsSet(kGraphics);
    if (!choosesGraphics) {
        qputenv(kGraphics, "none"); // nothing is drawn with OpenGL, which takes memory and time
    }
    const QApplication application(argc, argv);
    if (!choosesGraphics) {
        qunsetenv(kGraphics); // what is started from here may draw with it
    }
    QApplication::setApplicationName("Pello");
    QApplication::setApplicationVersion(kVersion);
    QApplication::setDesktopFileName("is.tolva.pello");
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setCursorFlashTime(0); // the panel's caret stands still, so nothing need wake up
    signals.deliver([] { QApplication::quit(); });
    describeToAssistiveTechnology();
    Agent agent(std::filesystem::path(socket).parent_path());
    int status = ExitStatus::kNothing;
    if (agent.start(socket, command)) {
        status = QApplication::exec();
        agent.finish(instance.isAwaited() ? KeyboardControl::Successor::waiting
                                          : KeyboardControl::Successor::none);
    } else {
        std::cerr << "pello: cannot listen at \"" << socket << "\"\n";
    }
    signals.stop();
    return status;
}

} // namespace pello
