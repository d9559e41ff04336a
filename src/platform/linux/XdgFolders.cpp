#include "platform/linux/XdgFolders.h"

#include <pwd.h>
#include <unistd.h>

namespace pello {

namespace {

namespace fs = std::filesystem;

std::optional<fs::path> absolute(std::string_view value) {
    return value.starts_with('/') ? std::optional<fs::path>(value) : std::nullopt;
}

fs::path homeFolder(const Environment& environment) {
    if (auto home = absolute(environment.value("HOME"))) {
        return *home;
    }
    const passwd* user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? fs::path(user->pw_dir) : fs::path("/");
}

} // namespace

XdgFolders xdgFolders(const Environment& environment) {
    const auto named = [&](std::string_view name) { return absolute(environment.value(name)); };
    const fs::path home = homeFolder(environment);
    XdgFolders folders{.home = home,
                       .config = named("XDG_CONFIG_HOME").value_or(home / ".config"),
                       .data = named("XDG_DATA_HOME").value_or(home / ".local/share"),
                       .state = named("XDG_STATE_HOME").value_or(home / ".local/state"),
                       .runtime = named("XDG_RUNTIME_DIR"),
                       .systemData = {}};
    for (const std::string& folder : environment.list("XDG_DATA_DIRS")) {
        if (auto path = absolute(folder)) {
            folders.systemData.push_back(*std::move(path));
        }
    }
    if (folders.systemData.empty()) {
        folders.systemData = {"/usr/local/share", "/usr/share"};
    }
    return folders;
}

} // namespace pello
