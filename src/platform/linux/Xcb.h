#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace pello {

struct FreeXcbReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// An answer or event of the X server, which whoever receives it frees.
template <class T>
using XcbReply = std::unique_ptr<T, FreeXcbReply>;

/// The atom called `name`, made where the server has none; none when the connection is broken.
/// Waits for the server.
[[nodiscard]] inline xcb_atom_t atomNamed(xcb_connection_t* connection, std::string_view name) {
    const auto request =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const XcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace pello
