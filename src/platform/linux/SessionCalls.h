#pragma once

#include <QDBusConnection>
#include <QDBusError>

#include <filesystem>
#include <functional>
#include <string_view>

class QObject;

namespace pello {

/// How a call ended: null when it succeeded.
using CallEnded = std::function<void(const QDBusError* error)>;

/// Asks the application that owns `busName` on `bus` to show itself, and starts it for that.
/// `ended` is called later on this thread, unless `context` has died.
void activateApplication(const QDBusConnection& bus, std::string_view busName, QObject& context,
                         CallEnded ended);

/// Asks the file manager on `bus` to show `file` selected; `ended` as above.
void showInFileManager(const QDBusConnection& bus, const std::filesystem::path& file,
                       QObject& context, CallEnded ended);

/// Whether the call failed because nobody is there to answer it, so that nothing was done.
[[nodiscard]] bool isNobodyThere(const QDBusError& error);

} // namespace pello
