#include "platform/linux/X11Focus.h"

#include "base/Text.h"

#include <string_view>

namespace pello {
namespace {

// In units of four bytes.
constexpr std::uint32_t kLongestClass = 64;

xcb_window_t rootOf(xcb_connection_t* connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

XcbReply<xcb_get_property_reply_t> property(xcb_connection_t* connection, xcb_window_t window,
                                            xcb_atom_t name) {
    const auto request =
        xcb_get_property(connection, 0, window, name, XCB_ATOM_ANY, 0, kLongestClass);
    return XcbReply<xcb_get_property_reply_t>(xcb_get_property_reply(connection, request, nullptr));
}

bool hasWindowManager(xcb_connection_t* connection) {
    const auto reply =
        property(connection, rootOf(connection), atomNamed(connection, "_NET_SUPPORTING_WM_CHECK"));
    return reply && reply->type != XCB_ATOM_NONE;
}

xcb_window_t parentOf(xcb_connection_t* connection, xcb_window_t window) {
    const XcbReply<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    return reply ? reply->parent : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace

xcb_window_t windowWithKeyboard(xcb_connection_t* connection) {
    const XcbReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    if (!reply || reply->focus == XCB_INPUT_FOCUS_NONE) {
        return XCB_WINDOW_NONE;
    }
    const xcb_window_t root = rootOf(connection);
    if (reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT && reply->focus != root) {
        return reply->focus;
    }
    return hasWindowManager(connection) ? xcb_window_t{XCB_WINDOW_NONE} : root;
}

std::vector<std::string> classNames(xcb_connection_t* connection, xcb_window_t window) {
    // Some toolkits give the keyboard to a window inside the one that bears the class.
    for (; window != XCB_WINDOW_NONE; window = parentOf(connection, window)) {
        const auto reply = property(connection, window, XCB_ATOM_WM_CLASS);
        if (reply && reply->type == XCB_ATOM_STRING) {
            const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
            const auto length =
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
            std::vector<std::string> names;
            for (const std::string_view name : text::split({bytes, length}, '\0')) {
                names.push_back(text::lowercased(name));
            }
            return names;
        }
    }
    return {};
}

} // namespace pello
