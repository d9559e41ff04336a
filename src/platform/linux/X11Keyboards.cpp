#include "platform/linux/X11Keyboards.h"

#include "platform/linux/Xcb.h"

namespace pello {

X11Keyboards X11Keyboards::of(xcb_connection_t* connection) {
    const XcbReply<xcb_input_xi_query_device_reply_t> reply(xcb_input_xi_query_device_reply(
        connection, xcb_input_xi_query_device(connection, XCB_INPUT_DEVICE_ALL), nullptr));
    X11Keyboards keyboards;
    if (!reply) {
        return keyboards;
    }
    auto device = xcb_input_xi_query_device_infos_iterator(reply.get());
    for (; device.rem > 0; xcb_input_xi_device_info_next(&device)) {
        const xcb_input_xi_device_info_t& info = *device.data;
        // The merged ones come first; the first of them is what other clients are given.
        if (info.type == XCB_INPUT_DEVICE_TYPE_MASTER_KEYBOARD && keyboards.merged == 0) {
            keyboards.merged = info.deviceid;
        } else if (info.type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD &&
                   info.attachment == keyboards.merged) {
            keyboards.devices.push_back(
                {info.deviceid, {xcb_input_xi_device_info_name(&info), info.name_len}});
        }
    }
    return keyboards;
}

} // namespace pello
