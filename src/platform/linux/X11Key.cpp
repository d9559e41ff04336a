#include "platform/linux/X11Key.h"

#include "platform/linux/Xcb.h"

#include <sys/uio.h>
#include <xcb/xcbext.h>

#include <array>
#include <cstring>
#include <span>

namespace pello {
namespace {

// The sections of `X11Key::parts`, each filled up to four bytes:
//
//   symbols    types of the groups (4 x 1), groups, width, number of symbols (2), symbols (n x 4)
//   actions    their number (1); actions (n x 8)
//   set by hand  nothing, or the key and its bits
//   modifiers    nothing, or the key and its bits

constexpr std::uint16_t kParts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_KEY_ACTIONS |
                                 XCB_XKB_MAP_PART_EXPLICIT_COMPONENTS |
                                 XCB_XKB_MAP_PART_MODIFIER_MAP;

constexpr std::size_t filledUp(std::size_t length) {
    return (length + 3) & ~std::size_t{3};
}

std::size_t symbolsLength(const X11Key& key) {
    return 8 + std::size_t{4} * key.symbols;
}

constexpr std::size_t kActionCountLength = 4;

/// The library's own call for this forgets the fillings, and refuses to send what comes out.
xcb_xkb_set_map_request_t requestFor(xcb_connection_t* connection, xcb_xkb_device_spec_t device,
                                     std::uint16_t present) {
    xcb_xkb_set_map_request_t request{};
    request.deviceSpec = device;
    request.present = present;
    request.minKeyCode = xcb_get_setup(connection)->min_keycode;
    request.maxKeyCode = xcb_get_setup(connection)->max_keycode;
    return request;
}

bool send(xcb_connection_t* connection, xcb_xkb_set_map_request_t& request,
          std::span<const std::uint8_t> values) {
    std::vector<std::uint8_t> copy(values.begin(), values.end());
    std::array<iovec, 4> pieces{}; // the library uses the first two
    pieces[2] = {&request, sizeof request};
    pieces[3] = {copy.data(), copy.size()};
    const xcb_protocol_request_t protocol{2, &xcb_xkb_id, XCB_XKB_SET_MAP, 1};
    const xcb_void_cookie_t sent{
        xcb_send_request(connection, XCB_REQUEST_CHECKED, &pieces[2], &protocol)};
    const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection, sent));
    return error == nullptr;
}

} // namespace

X11Key X11Key::settingModifiers(xcb_keycode_t key, std::uint8_t mask) {
    constexpr std::uint8_t kHandSet =
        XCB_XKB_EXPLICIT_V_MOD_MAP | XCB_XKB_EXPLICIT_INTERPRET | XCB_XKB_EXPLICIT_KEY_TYPE_1;
    constexpr std::uint8_t kAction = XCB_XKB_SA_TYPE_SET_MODS;
    return {.symbols = 1,
            .actions = 1,
            .handSet = 1,
            .modifierMaps = 0,
            .parts = {0,       0,        0,    0,    1, 1, 1, 0, // one level, one group
                      0xFF,    0xFF,     0xFF, 0,                // VoidSymbol
                      1,       0,        0,    0,                //
                      kAction, 0,        mask, mask, 0, 0, 0, 0, //
                      key,     kHandSet, 0,    0}};
}

bool X11Key::isWhole() const {
    return parts.size() == symbolsLength(*this) + kActionCountLength + std::size_t{8} * actions +
                               filledUp(std::size_t{2} * handSet) +
                               filledUp(std::size_t{2} * modifierMaps);
}

std::optional<xcb_xkb_action_t> X11Key::firstAction() const {
    if (actions == 0 || !isWhole()) {
        return std::nullopt;
    }
    xcb_xkb_action_t action{};
    std::memcpy(&action, parts.data() + symbolsLength(*this) + kActionCountLength, sizeof action);
    return action;
}

bool X11Key::setsModifiers(std::uint8_t mask) const {
    const auto action = firstAction();
    return action && action->type == XCB_XKB_SA_TYPE_SET_MODS && action->setmods.realMods == mask &&
           action->setmods.vmodsHigh == 0 && action->setmods.vmodsLow == 0;
}

std::optional<X11Key> readKey(xcb_connection_t* connection, xcb_xkb_device_spec_t device,
                              xcb_keycode_t key) {
    const auto request = xcb_xkb_get_map(connection, device, 0, kParts, 0, 0, key, 1, key, 1, 0, 0,
                                         0, key, 1, key, 1, 0, 0);
    const XcbReply<xcb_xkb_get_map_reply_t> reply(
        xcb_xkb_get_map_reply(connection, request, nullptr));
    if (!reply || reply->present != kParts) {
        return std::nullopt;
    }
    const auto* begin = static_cast<const std::uint8_t*>(xcb_xkb_get_map_map(reply.get()));
    constexpr std::size_t kCounted = 32; // what every reply has beyond its counted length
    const std::size_t length = kCounted + std::size_t{4} * reply->length - sizeof *reply;
    X11Key content = {.symbols = reply->totalSyms,
                      .actions = reply->totalActions,
                      .handSet = reply->totalKeyExplicit,
                      .modifierMaps = reply->totalModMapKeys,
                      .parts = {begin, begin + length}};
    return content.isWhole() ? std::optional(std::move(content)) : std::nullopt;
}

bool writeKey(xcb_connection_t* connection, xcb_xkb_device_spec_t device, xcb_keycode_t key,
              const X11Key& content) {
    if (!content.isWhole()) {
        return false;
    }
    // The symbols go first: servers check the number of actions against the symbols of before.
    const std::span<const std::uint8_t> parts = content.parts;
    auto symbols = requestFor(connection, device, XCB_XKB_MAP_PART_KEY_SYMS);
    symbols.firstKeySym = key;
    symbols.nKeySyms = 1;
    symbols.totalSyms = content.symbols;
    if (!send(connection, symbols, parts.first(symbolsLength(content)))) {
        return false;
    }
    auto rest = requestFor(connection, device, kParts & ~XCB_XKB_MAP_PART_KEY_SYMS);
    rest.firstKeyAction = rest.firstKeyExplicit = rest.firstModMapKey = key;
    rest.nKeyActions = rest.nKeyExplicit = rest.nModMapKeys = 1;
    rest.totalActions = content.actions;
    rest.totalKeyExplicit = content.handSet;
    rest.totalModMapKeys = content.modifierMaps;
    return send(connection, rest, parts.subspan(symbolsLength(content)));
}

} // namespace pello
