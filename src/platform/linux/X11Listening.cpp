#include "platform/linux/X11Listening.h"

#include "platform/linux/X11Connection.h"
#include "platform/linux/X11InputVersion.h"
#include "platform/linux/X11Keyboards.h"
#include "platform/linux/X11Xkb.h"

#include <algorithm>
#include <cstdlib>

namespace pello {
namespace {

constexpr const char* kInstead =
    " Give “pello toggle” a key in the desktop's own keyboard settings instead.";

bool isWaylandSession() {
    const char* display = std::getenv("WAYLAND_DISPLAY");
    return display != nullptr && *display != '\0';
}

/// The X server for old programs on a Wayland desktop, which shows them their own keys only.
bool isForOldPrograms(const X11Keyboards& keyboards) {
    return std::ranges::any_of(keyboards.devices, [](const X11Keyboards::Device& device) {
        return device.name.starts_with("xwayland-");
    });
}

} // namespace

std::optional<std::string> listeningObstacle() {
    const X11Connection connection;
    if (connection.isBroken()) {
        return (isWaylandSession() ? "On Wayland no program may listen to the keyboard."
                                   : "There is no X server to listen to.") +
               std::string(kInstead);
    }
    const X11InputVersion version = X11InputVersion::of(connection.get());
    if (!version.isEnough()) {
        return "The X server lacks version 2.2 of the input extension." + std::string(kInstead);
    }
    if (isForOldPrograms(X11Keyboards::of(connection.get()))) {
        return "On Wayland no program may listen to the keyboard." + std::string(kInstead);
    }
    if (watchXkb(connection.get(), 0) == 0) {
        return "The X server lacks the keyboard extension." + std::string(kInstead);
    }
    return std::nullopt;
}

} // namespace pello
