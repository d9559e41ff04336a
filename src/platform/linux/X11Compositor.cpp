#include "platform/linux/X11Compositor.h"

#include "platform/linux/Xcb.h"

#include <QGuiApplication>

namespace pello {

namespace {

bool isOwned(xcb_connection_t* connection, xcb_atom_t selection) {
    const auto request = xcb_get_selection_owner(connection, selection);
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, request, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

bool X11Compositor::isRunning() const {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr) {
        return true;
    }
    static const xcb_atom_t selection = atomNamed(x11->connection(), "_NET_WM_CM_S0");
    return selection != XCB_ATOM_NONE && isOwned(x11->connection(), selection);
}

} // namespace pello
