#include "platform/linux/X11Keystrokes.h"

#include "platform/linux/TerminalWindows.h"
#include "platform/linux/X11Focus.h"
#include "platform/linux/X11KeyFinder.h"
#include "platform/linux/Xcb.h"

#include <QGuiApplication>
#include <xcb/xtest.h>

#include <algorithm>
#include <ranges>
#include <vector>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace pello {
namespace {

using Keys = std::vector<xcb_keycode_t>;

// Where V stands on most keyboards, for layouts that know no V.
constexpr xcb_keycode_t kUsualV = 55;

/// The toolkit's connection to the X server; null where it uses none.
xcb_connection_t* toolkitConnection() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

bool isOwn(xcb_window_t window, xcb_connection_t* toolkit) {
    const xcb_setup_t* setup = xcb_get_setup(toolkit);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

} // namespace

class X11Keystrokes::Client {
public:
    Client() : connection_(xcb_connect(nullptr, nullptr)) {}
    ~Client() { xcb_disconnect(connection_); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    [[nodiscard]] xcb_connection_t* connection() const { return connection_; }
    [[nodiscard]] bool canPress() const {
        return xcb_connection_has_error(connection_) == 0 &&
               xcb_get_extension_data(connection_, &xcb_test_id)->present != 0;
    }

    /// Presses `keys` together while nothing else is held.
    void pressAlone(const Keys& keys, const X11KeyFinder& finder) {
        const Keys held = heldModifiers(finder);
        for (const xcb_keycode_t key : held) {
            fake(XCB_KEY_RELEASE, key);
        }
        for (const xcb_keycode_t key : keys) {
            fake(XCB_KEY_PRESS, key);
        }
        for (const xcb_keycode_t key : std::views::reverse(keys)) {
            fake(XCB_KEY_RELEASE, key);
        }
        for (const xcb_keycode_t key : held) {
            fake(XCB_KEY_PRESS, key);
        }
        xcb_flush(connection_);
    }

private:
    void fake(std::uint8_t event, xcb_keycode_t key) {
        xcb_test_fake_input(connection_, event, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    }

    [[nodiscard]] Keys heldModifiers(const X11KeyFinder& finder) const {
        const XcbReply<xcb_query_keymap_reply_t> reply(
            xcb_query_keymap_reply(connection_, xcb_query_keymap(connection_), nullptr));
        Keys held;
        for (unsigned key = 0; reply && key < 8 * std::size(reply->keys); ++key) {
            const bool isDown = ((reply->keys[key / 8] >> (key % 8)) & 1U) != 0;
            if (isDown && finder.isHeldModifier(static_cast<xcb_keycode_t>(key))) {
                held.push_back(static_cast<xcb_keycode_t>(key));
            }
        }
        return held;
    }

    xcb_connection_t* connection_;
};

X11Keystrokes::X11Keystrokes() = default;
X11Keystrokes::~X11Keystrokes() = default;

Keystrokes::Outcome X11Keystrokes::pressPaste() {
    xcb_connection_t* toolkit = toolkitConnection();
    if (toolkit == nullptr) {
        return Outcome::impossible;
    }
    if (!client_ || !client_->canPress()) {
        client_ = std::make_unique<Client>();
    }
    if (!client_->canPress()) {
        return Outcome::impossible;
    }
    const xcb_window_t window = windowWithKeyboard(client_->connection());
    if (window == XCB_WINDOW_NONE || isOwn(window, toolkit)) {
        return Outcome::tooEarly;
    }
    const X11KeyFinder finder(client_->connection());
    const xcb_keycode_t letter = finder.keyFor(XKB_KEY_v);
    Keys keys = {finder.keyFor(XKB_KEY_Control_L)};
    if (isTerminalWindow(classNames(client_->connection(), window))) {
        keys.push_back(finder.keyFor(XKB_KEY_Shift_L));
    }
    keys.push_back(letter != 0 ? letter : kUsualV);
    if (std::ranges::find(keys, 0) != keys.end()) {
        return Outcome::impossible;
    }
    client_->pressAlone(keys, finder);
    return Outcome::pressed;
}

} // namespace pello
