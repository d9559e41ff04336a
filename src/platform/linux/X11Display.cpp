#include "platform/linux/X11Display.h"

#include <QGuiApplication>
#include <QString>
#include <xcb/xcb.h>

namespace pello {

std::optional<std::string> displayProblem() {
    // Wayland, and platforms chosen by hand, are left to Qt.
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
        !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        return std::nullopt;
    }
    const std::string display = qEnvironmentVariable("DISPLAY").toStdString();
    if (display.empty()) {
        return "There is no display.";
    }
    xcb_connection_t* connection = xcb_connect(display.c_str(), nullptr);
    const bool isReachable = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isReachable ? std::nullopt
                       : std::optional("The display \"" + display + "\" cannot be reached.");
}

} // namespace pello
