#pragma once

#include <QDBusConnection>
#include <sys/types.h>

#include <string>
#include <string_view>

namespace pello {

/// The unit in which a started application lives: app-pello-<id, escaped>-<pid>.scope.
[[nodiscard]] std::string scopeName(std::string_view applicationID, pid_t pid);

/// Asks the user's service manager on `bus` to move `pid`, and what it starts, into a scope of its
/// own, so that it is accounted for and ended apart from this program. Returns at once. Where there
/// is no such manager the process stays where it is.
void moveToScope(const QDBusConnection& bus, std::string_view applicationID, pid_t pid);

} // namespace pello
