#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace pello {

/// The version of an X server's input extension; all zero when it lacks it.
struct X11InputVersion {
    std::uint16_t major = 0;
    std::uint16_t minor = 0;

    /// Has to be asked on each connection that uses the extension, before anything else of it.
    /// Waits for the server.
    [[nodiscard]] static X11InputVersion of(xcb_connection_t* connection);

    /// Whether keys can be watched while other programs hold the keyboard.
    [[nodiscard]] bool isEnough() const { return major > 2 || (major == 2 && minor >= 2); }
};

} // namespace pello
