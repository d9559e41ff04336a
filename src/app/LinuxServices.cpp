#include "app/LinuxServices.h"

#include "platform/PelloLog.h"
#include "platform/linux/SystemLog.h"

#include <QDBusConnection>

#include <string>
#include <system_error>

namespace pello {
namespace {

std::filesystem::path defaultsFile(const XdgFolders& folders) {
    return folders.config / "pello" / (std::string(PelloLog::kSubsystem) + ".plist");
}

std::string thisProgram() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? "pello" : program.string();
}

QDBusConnection busOf(LinuxServices::Session session, const Environment& environment) {
    return session == LinuxServices::Session::connected
               ? sessionBus(environment)
               : QDBusConnection(QStringLiteral("left alone"));
}

} // namespace

LinuxServices::LinuxServices(MainLoop& mainLoop, FolderWatcher& folderWatcher,
                             Pasteboard& generalPasteboard, Keystrokes& pressedKeys,
                             Session session)
    : loop(mainLoop),
      watcher(folderWatcher),
      pasteboard(generalPasteboard),
      keystrokes(pressedKeys),
      environment(Environment::ofThisProcess()),
      folders(xdgFolders(environment)),
      log(makeSystemLog(folders)),
      defaults(defaultsFile(folders), loop, watcher, *log),
      bundles(environment),
      workspace(environment, busOf(session, environment)),
      loginItem(folders.config / "autostart", {thisProgram()}) {}

Platform LinuxServices::ports() {
    return {.loop = loop,
            .defaults = defaults,
            .watcher = watcher,
            .bundles = bundles,
            .workspace = workspace,
            .addressHandlers = addressHandlers,
            .pasteboard = pasteboard,
            .keystrokes = keystrokes,
            .loginItem = loginItem,
            .log = *log,
            .home = folders.home};
}

} // namespace pello
