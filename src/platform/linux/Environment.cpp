#include "platform/linux/Environment.h"

#include "base/Text.h"

#include <array>
#include <unistd.h>

namespace pello {
namespace {

/// What this process was told about itself, by whoever started it. Of no meaning to others.
constexpr std::array kOwnVariables = {
    "DESKTOP_STARTUP_ID",
    "GIO_LAUNCHED_DESKTOP_FILE",
    "GIO_LAUNCHED_DESKTOP_FILE_PID",
    "INVOCATION_ID",
    "JOURNAL_STREAM",
    "LISTEN_FDNAMES",
    "LISTEN_FDS",
    "LISTEN_PID",
    "MANAGERPID",
    "NOTIFY_SOCKET",
    "WATCHDOG_PID",
    "WATCHDOG_USEC",
    "XDG_ACTIVATION_TOKEN",
};

} // namespace

Environment Environment::ofThisProcess() {
    Environment environment;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view line = *entry;
        if (const std::size_t equals = line.find('='); equals != std::string_view::npos) {
            environment.variables.emplace(line.substr(0, equals), line.substr(equals + 1));
        }
    }
    return environment;
}

Environment Environment::forOtherPrograms() const {
    Environment others = *this;
    for (const char* variable : kOwnVariables) {
        others.variables.erase(variable);
    }
    return others;
}

std::string_view Environment::value(std::string_view name) const {
    const auto found = variables.find(name);
    return found != variables.end() ? std::string_view(found->second) : std::string_view();
}

std::vector<std::string> Environment::list(std::string_view name, char separator) const {
    const auto parts = text::split(value(name), separator);
    return {parts.begin(), parts.end()};
}

} // namespace pello
