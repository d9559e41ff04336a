#include "support/ProbeWindow.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <poll.h>
#include <stdexcept>

namespace pello {
namespace {

constexpr xcb_keycode_t kEscapeKey = 9;

template <class Event>
const Event& as(const XcbReply<xcb_generic_event_t>& event) {
    return reinterpret_cast<const Event&>(*event); // NOLINT(*-reinterpret-cast)
}

unsigned kindOf(const XcbReply<xcb_generic_event_t>& event) {
    return event->response_type & 0x7FU;
}

} // namespace

ProbeWindow::ProbeWindow(Manager manager) : window_(xcb_generate_id(connection_.get())) {
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                 XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window_, connection_.root(), 0, 0,
                      200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_EVENT_MASK, &events);
    xcb_map_window(connection_.get(), window_);
    xcb_flush(connection_.get());
    bool isFocused = false;
    bool isInPlace = manager == Manager::none;
    while (!isFocused || !isInPlace) {
        const unsigned kind = kindOf(next());
        isInPlace = isInPlace || kind == XCB_REPARENT_NOTIFY;
        if (kind == XCB_FOCUS_IN) {
            isFocused = true;
        } else if (kind == XCB_FOCUS_OUT || kind == XCB_UNMAP_NOTIFY) {
            isFocused = false; // it moves into its frame
        }
        // Where a manager gives it the focus besides, that is no harm. Until the manager has mapped
        // its frame, the answer is an error.
        if (kind == XCB_MAP_NOTIFY || kind == 0) {
            takeFocus();
        }
    }
}

void ProbeWindow::takeFocus() {
    xcb_connection_t* x = connection_.get();
    xcb_set_input_focus(x, XCB_INPUT_FOCUS_PARENT, window_, XCB_CURRENT_TIME);
    const XcbReply<xcb_get_input_focus_reply_t> done(
        xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
}

XcbReply<xcb_generic_event_t> ProbeWindow::next() {
    while (true) {
        XcbReply<xcb_generic_event_t> event(xcb_poll_for_event(connection_.get()));
        if (event) {
            return event;
        }
        pollfd wait{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
        if (connection_.isBroken() || ::poll(&wait, 1, 30'000) <= 0) {
            throw std::runtime_error("nothing reached the window");
        }
    }
}

std::vector<ProbeWindow::Key> ProbeWindow::keysUntil(xcb_keycode_t last) {
    std::vector<Key> keys;
    while (true) {
        const auto event = next();
        const unsigned kind = kindOf(event);
        if (kind == XCB_KEY_PRESS || kind == XCB_KEY_RELEASE) {
            const auto& key = as<xcb_key_press_event_t>(event);
            if (kind == XCB_KEY_PRESS && key.detail == last) {
                return keys;
            }
            if (key.detail == last) {
                continue; // released from an earlier time
            }
            keys.push_back({kind == XCB_KEY_PRESS, key.detail, key.state});
        }
    }
}

std::vector<std::string> ProbeWindow::receivedUntil(xcb_keycode_t last) {
    constexpr unsigned kLocks = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2;
    std::vector<std::string> received;
    for (const Key& key : keysUntil(last)) {
        std::array<char, 16> text{};
        const unsigned modifiers = key.state & 0xFFU & ~kLocks;
        if (key.isPress && modifiers != 0) {
            static_cast<void>(
                std::snprintf(text.data(), text.size(), "d%u/%02x", key.code, modifiers));
        } else {
            static_cast<void>(
                std::snprintf(text.data(), text.size(), "%c%u", key.isPress ? 'd' : 'u', key.code));
        }
        received.emplace_back(text.data());
    }
    return received;
}

std::vector<xcb_keycode_t> ProbeWindow::pressedUntil(xcb_keycode_t last) {
    std::vector<xcb_keycode_t> pressed;
    for (const Key& key : keysUntil(last)) {
        if (key.isPress) {
            pressed.push_back(key.code);
        }
    }
    return pressed;
}

void ProbeWindow::openMenu() {
    const XcbReply<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(connection_.get(),
                                xcb_grab_keyboard(connection_.get(), 0, window_, XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr));
    ASSERT_TRUE(reply && reply->status == XCB_GRAB_STATUS_SUCCESS);
    isMenuOpen_ = true;
}

bool ProbeWindow::isMenuOpen() {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        if (kindOf(event) == XCB_KEY_PRESS &&
            as<xcb_key_press_event_t>(event).detail == kEscapeKey) {
            xcb_ungrab_keyboard(connection_.get(), XCB_CURRENT_TIME);
            xcb_flush(connection_.get());
            isMenuOpen_ = false;
        }
    }
    return isMenuOpen_;
}

} // namespace pello
