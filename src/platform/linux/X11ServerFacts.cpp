#include "platform/linux/X11ServerFacts.h"

#include "platform/linux/X11InputVersion.h"
#include "platform/linux/Xcb.h"

#include <memory>
#include <string_view>

namespace pello {
namespace {

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

bool hasExtension(xcb_connection_t* connection, std::string_view name) {
    const auto cookie =
        xcb_query_extension(connection, static_cast<std::uint16_t>(name.size()), name.data());
    const XcbReply<xcb_query_extension_reply_t> reply(
        xcb_query_extension_reply(connection, cookie, nullptr));
    return reply && reply->present != 0;
}

bool hasTray(xcb_connection_t* connection, int screen) {
    const xcb_atom_t selection =
        atomNamed(connection, "_NET_SYSTEM_TRAY_S" + std::to_string(screen));
    const XcbReply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, selection), nullptr));
    return owner && owner->owner != XCB_NONE;
}

std::string nameOf(const xcb_setup_t& setup) {
    const std::string_view vendor(xcb_setup_vendor(&setup),
                                  static_cast<std::size_t>(xcb_setup_vendor_length(&setup)));
    const std::uint32_t release = setup.release_number; // of X.Org: two digits for each part
    return std::string(vendor) + ' ' + std::to_string(release / 10'000'000) + '.' +
           std::to_string(release / 100'000 % 100) + '.' + std::to_string(release / 1000 % 100);
}

} // namespace

std::optional<X11ServerFacts> X11ServerFacts::read() {
    int screen = 0;
    const Connection connection(xcb_connect(nullptr, &screen), xcb_disconnect);
    if (xcb_connection_has_error(connection.get()) != 0) {
        return std::nullopt;
    }
    X11ServerFacts facts;
    facts.name = nameOf(*xcb_get_setup(connection.get()));
    const auto input = X11InputVersion::of(connection.get());
    if (input.major > 0) {
        facts.input = std::to_string(input.major) + '.' + std::to_string(input.minor);
    }
    facts.isInputEnough = input.isEnough();
    facts.hasKeyboardExtension = hasExtension(connection.get(), "XKEYBOARD");
    facts.hasTestExtension = hasExtension(connection.get(), "XTEST");
    facts.hasTray = pello::hasTray(connection.get(), screen);
    return facts;
}

} // namespace pello
