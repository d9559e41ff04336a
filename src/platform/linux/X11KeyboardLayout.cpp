#include "platform/linux/X11KeyboardLayout.h"

#include "platform/linux/X11Connection.h"
#include "platform/linux/X11KeyCodes.h"
#include "platform/linux/X11KeyFinder.h"
#include "platform/linux/X11Xkb.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace pello {
namespace {

/// The accents of keys that wait for a letter.
constexpr std::array<std::pair<xkb_keysym_t, std::string_view>, 13> kAccents = {{
    {XKB_KEY_dead_grave, "`"},
    {XKB_KEY_dead_acute, "´"},
    {XKB_KEY_dead_circumflex, "^"},
    {XKB_KEY_dead_tilde, "~"},
    {XKB_KEY_dead_macron, "¯"},
    {XKB_KEY_dead_breve, "˘"},
    {XKB_KEY_dead_abovedot, "˙"},
    {XKB_KEY_dead_diaeresis, "¨"},
    {XKB_KEY_dead_abovering, "˚"},
    {XKB_KEY_dead_doubleacute, "˝"},
    {XKB_KEY_dead_caron, "ˇ"},
    {XKB_KEY_dead_cedilla, "¸"},
    {XKB_KEY_dead_ogonek, "˛"},
}};

bool isControl(char first) {
    return static_cast<unsigned char>(first) < 0x20 || first == '\x7f';
}

std::string textOf(xkb_keysym_t symbol) {
    const auto* const accent =
        std::ranges::find(kAccents, symbol, [](const auto& entry) { return entry.first; });
    if (accent != kAccents.end()) {
        return std::string(accent->second);
    }
    std::array<char, 8> text{};
    const bool types = xkb_keysym_to_utf8(symbol, text.data(), text.size()) > 1;
    return types && !isControl(text.front()) ? std::string(text.data()) : std::string();
}

} // namespace

/// Keeps the map of keys until the server tells that it changed.
class X11KeyboardLayout::Client {
public:
    Client() {
        if (!connection_.isBroken()) {
            watchXkb(connection_.get(),
                     XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY);
            keys_ = std::make_unique<X11KeyFinder>(connection_.get());
        }
    }

    std::string character(xcb_keycode_t key) {
        if (connection_.isBroken()) {
            return {};
        }
        const XcbReply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
            connection_.get(), xcb_xkb_get_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD),
            nullptr));
        readChanges();
        return state && keys_->isValid() ? textOf(keys_->symbolOf(key, state->group))
                                         : std::string();
    }

private:
    /// What changed before the server's last answer has arrived before it.
    void readChanges() {
        bool isStale = false;
        while (const XcbReply<xcb_generic_event_t> event{
            xcb_poll_for_queued_event(connection_.get())}) {
            isStale = true;
        }
        if (isStale) {
            keys_ = std::make_unique<X11KeyFinder>(connection_.get());
        }
    }

    X11Connection connection_;
    std::unique_ptr<X11KeyFinder> keys_;
};

X11KeyboardLayout::X11KeyboardLayout() : client_(std::make_unique<Client>()) {}
X11KeyboardLayout::~X11KeyboardLayout() = default;

std::string X11KeyboardLayout::character(std::uint16_t keyCode) const {
    const xcb_keycode_t key = x11Keys::keyOf(keyCode);
    return key == 0 ? std::string() : client_->character(key);
}

} // namespace pello
