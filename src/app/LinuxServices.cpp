#include "app/LinuxServices.h"

#include "app/client/ProgramFiles.h"
#include "platform/PelloLog.h"
#include "platform/linux/SystemLog.h"
#include "platform/memory/MemoryLoginEnvironment.h"
#include "platform/posix/ShellLoginEnvironment.h"

#include <QDBusConnection>

#include <string>
#include <utility>

namespace pello {
namespace {

std::filesystem::path defaultsFile(const XdgFolders& folders) {
    return folders.config / "pello" / (std::string(PelloLog::kSubsystem) + ".plist");
}

/// What the desktop is to start at login.
std::string startedProgram() {
    const std::string program = programOfThisProcess();
    return program.empty() ? "pello" : clientFor(program);
}

QDBusConnection busOf(LinuxServices::Session session, const Environment& environment) {
    return session == LinuxServices::Session::leftAlone
               ? QDBusConnection(QStringLiteral("left alone"))
               : sessionBus(environment);
}

std::unique_ptr<LoginEnvironment> environmentOf(LinuxServices& services,
                                                LinuxServices::Session session) {
    auto inherited = services.environment.forOtherPrograms().variables;
    if (session == LinuxServices::Session::connected) {
        return std::make_unique<ShellLoginEnvironment>(
            services.processes, services.surface.loop, *services.log,
            ShellLoginEnvironment::Session{.shell = loginShell(),
                                           .home = services.folders.home,
                                           .inherited = std::move(inherited)});
    }
    auto known = std::make_unique<MemoryLoginEnvironment>();
    known->become(std::move(inherited));
    return known;
}

} // namespace

LinuxServices::LinuxServices(const Surface& chosen, Session session)
    : surface(chosen),
      environment(Environment::ofThisProcess()),
      folders(xdgFolders(environment)),
      log(makeSystemLog(folders)),
      defaults(defaultsFile(folders), surface.loop, surface.watcher, *log),
      bundles(environment),
      workspace(environment, busOf(session, environment)),
      loginItem(folders.config / "autostart", {startedProgram()}),
      notifier(busOf(session, environment)),
      loginEnvironment(environmentOf(*this, session)) {}

Platform LinuxServices::ports() {
    return {.loop = surface.loop,
            .defaults = defaults,
            .watcher = surface.watcher,
            .fileAccess = fileAccess,
            .bundles = bundles,
            .workspace = workspace,
            .addressHandlers = addressHandlers,
            .pasteboard = surface.pasteboard,
            .keystrokes = surface.keystrokes,
            .dialogs = surface.dialogs,
            .notifier = notifier,
            .processes = processes,
            .loginEnvironment = *loginEnvironment,
            .loginItem = loginItem,
            .log = *log,
            .home = folders.home,
            .scripts = folders.data / "Pello" / "Scripts"};
}

} // namespace pello
