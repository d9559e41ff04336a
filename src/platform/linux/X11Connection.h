#pragma once

#include "platform/linux/Xcb.h"

namespace pello {

/// A connection of one's own to the X server that DISPLAY names, closed with this object.
class X11Connection {
public:
    X11Connection() : connection_(xcb_connect(nullptr, nullptr)) {}
    ~X11Connection() { xcb_disconnect(connection_); }
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    /// Never null, not even when there is no server.
    [[nodiscard]] xcb_connection_t* get() const { return connection_; }

    /// There is no server, or it has gone. Nothing else may be asked then.
    [[nodiscard]] bool isBroken() const { return xcb_connection_has_error(connection_) != 0; }

    /// The window that all others of the screen are in.
    [[nodiscard]] xcb_window_t root() const {
        return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }

private:
    xcb_connection_t* connection_;
};

} // namespace pello
