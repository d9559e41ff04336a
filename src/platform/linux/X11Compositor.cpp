#include "platform/linux/X11Compositor.h"

#include <QGuiApplication>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace pello {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, Free>;

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
    const auto request =
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool isOwned(xcb_connection_t* connection, xcb_atom_t selection) {
    const auto request = xcb_get_selection_owner(connection, selection);
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, request, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

bool X11Compositor::isRunning() const {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr) {
        return true;
    }
    static const xcb_atom_t selection = atom(x11->connection(), "_NET_WM_CM_S0");
    return selection != XCB_ATOM_NONE && isOwned(x11->connection(), selection);
}

} // namespace pello
