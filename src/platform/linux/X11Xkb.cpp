#include "platform/linux/X11Xkb.h"

#include "platform/linux/Xcb.h"

namespace pello {

std::uint8_t watchXkb(xcb_connection_t* connection, std::uint16_t kinds) {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (extension == nullptr || extension->present == 0) {
        return 0;
    }
    const XcbReply<xcb_xkb_use_extension_reply_t> version(xcb_xkb_use_extension_reply(
        connection, xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
        nullptr));
    if (!version || version->supported == 0) {
        return 0;
    }
    constexpr std::uint16_t kWholeMap = 0xFF;
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, kinds, 0, kinds, kWholeMap,
                          kWholeMap, nullptr);
    return extension->first_event;
}

} // namespace pello
