#include "platform/linux/X11InputVersion.h"

#include "platform/linux/Xcb.h"

#include <xcb/xinput.h>

namespace pello {

X11InputVersion X11InputVersion::of(xcb_connection_t* connection) {
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(connection, &xcb_input_id);
    if (extension == nullptr || extension->present == 0) {
        return {};
    }
    const XcbReply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection, xcb_input_xi_query_version(connection, 2, 2), nullptr));
    return version ? X11InputVersion{version->major_version, version->minor_version}
                   : X11InputVersion{};
}

} // namespace pello
