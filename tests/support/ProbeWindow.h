#pragma once

#include "platform/linux/X11Connection.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pello {

/// A focused window of an application, which notes the keys that reach it.
class ProbeWindow {
public:
    /// Whether a window manager is there, which puts a frame around the window.
    enum class Manager { none, present };

    /// Waits until the window is in its frame, if it is to have one, and has the keyboard.
    explicit ProbeWindow(Manager manager = Manager::none);

    /// What arrived since the last call, up to the press of the key `last`, which is waited for and
    /// left out: "d38" is a press of key 38, "u38" its release, "d38/4d" a press with these of the
    /// server's modifiers (without the locks).
    [[nodiscard]] std::vector<std::string> receivedUntil(xcb_keycode_t last);

    /// Only the codes of the pressed keys among that.
    [[nodiscard]] std::vector<xcb_keycode_t> pressedUntil(xcb_keycode_t last);

    /// Takes the keyboard, as an open menu does, until `isMenuOpen` meets a press
    /// of Escape.
    void openMenu();
    /// Follows what came in without waiting. Whether the menu is still open.
    bool isMenuOpen();

    /// Takes the focus back from another window. Waits for the server.
    void takeFocus();

    [[nodiscard]] xcb_window_t id() const { return window_; }
    [[nodiscard]] const X11Connection& connection() const { return connection_; }

private:
    struct Key {
        bool isPress = false;
        xcb_keycode_t code = 0;
        std::uint16_t state = 0;
    };
    [[nodiscard]] XcbReply<xcb_generic_event_t> next();
    [[nodiscard]] std::vector<Key> keysUntil(xcb_keycode_t last);

    X11Connection connection_;
    xcb_window_t window_;
    bool isMenuOpen_ = false;
};

} // namespace pello
