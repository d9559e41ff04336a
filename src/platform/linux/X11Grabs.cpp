#include "platform/linux/X11Grabs.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/linux/X11KeyCodes.h"
#include "platform/linux/Xcb.h"

#include <xcb/xinput.h>

#include <algorithm>
#include <array>

namespace pello {
namespace {

using Masks = std::array<std::uint32_t, 4>;

// With the raw ones: while a grab is active, its client gets no others than the grab asked for.
constexpr std::uint32_t kEvents =
    XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE |
    XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE |
    XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;

/// The combo's modifiers with Caps Lock and Num Lock in any state.
Masks masks(const X11Modifiers& modifiers, const TapRequest::Combo& combo) {
    const std::uint32_t mask = modifiers.mask(combo.modifiers);
    const std::uint32_t numbers = modifiers.numLock;
    return {mask, mask | XCB_MOD_MASK_LOCK, mask | numbers, mask | XCB_MOD_MASK_LOCK | numbers};
}

/// 0 must not reach the server, for which it stands for every key.
xcb_keycode_t keyOf(const X11Grab& grab) {
    return x11Keys::keyOf(grab.combo.keyCode);
}

/// What the server says of a grab: the modifiers for which it failed, each with the reason.
X11Grab::State stateIn(const xcb_input_xi_passive_grab_device_reply_t& reply) {
    auto failure = xcb_input_xi_passive_grab_device_modifiers_iterator(&reply);
    for (; failure.rem > 0; xcb_input_grab_modifier_info_next(&failure)) {
        return failure.data->status == XCB_GRAB_STATUS_ALREADY_GRABBED
                   ? X11Grab::State::takenByAnother
                   : X11Grab::State::refused;
    }
    return X11Grab::State::held;
}

X11Grab::State stateIn(const xcb_input_xi_grab_device_reply_t& reply) {
    switch (reply.status) {
    case XCB_GRAB_STATUS_SUCCESS:
        return X11Grab::State::held;
    case XCB_GRAB_STATUS_ALREADY_GRABBED:
    case XCB_GRAB_STATUS_FROZEN:
        return X11Grab::State::takenByAnother;
    default:
        return X11Grab::State::refused;
    }
}

} // namespace

X11Grabs::X11Grabs(xcb_connection_t* connection, xcb_window_t root, std::uint16_t keyboard,
                   const TapRequest& request)
    : connection_(connection), root_(root), keyboard_(keyboard) {
    for (const TapRequest::Combo& combo : request.combos) {
        grabs_.push_back({combo});
    }
    if (request.takesCommandTab) {
        grabs_.push_back({{virtualKeys::kTab, modifiers::kCommand}});
        grabs_.push_back({{virtualKeys::kTab, modifiers::kCommand | modifiers::kShift}});
    }
    for (X11Grab& grab : grabs_) {
        grab.state = keyOf(grab) == 0 ? X11Grab::State::noSuchKey : X11Grab::State::refused;
    }
}

/// The requests go out together and the answers are read afterwards: one wait for all.
void X11Grabs::claim(const X11Modifiers& modifiers) {
    if (modifiers != modifiers_) {
        giveUp();
        modifiers_ = modifiers;
    }
    std::vector<xcb_input_xi_passive_grab_device_cookie_t> requests;
    for (const X11Grab& grab : grabs_) {
        if (const xcb_keycode_t key = keyOf(grab); key != 0) {
            const Masks wanted = masks(modifiers, grab.combo);
            requests.push_back(xcb_input_xi_passive_grab_device(
                connection_, XCB_CURRENT_TIME, root_, XCB_CURSOR_NONE, key, keyboard_,
                wanted.size(), 1, XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC,
                XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER, &kEvents,
                wanted.data()));
        }
    }
    auto request = requests.begin();
    for (X11Grab& grab : grabs_) {
        if (keyOf(grab) != 0) {
            const XcbReply<xcb_input_xi_passive_grab_device_reply_t> reply(
                xcb_input_xi_passive_grab_device_reply(connection_, *request++, nullptr));
            grab.state = reply ? stateIn(*reply) : X11Grab::State::refused;
        }
    }
}

void X11Grabs::giveUp() {
    for (const X11Grab& grab : grabs_) {
        if (const xcb_keycode_t key = keyOf(grab); key != 0) {
            const Masks held = masks(modifiers_, grab.combo);
            xcb_input_xi_passive_ungrab_device(connection_, root_, key, keyboard_, held.size(),
                                               XCB_INPUT_GRAB_TYPE_KEYCODE, held.data());
        }
    }
}

X11Grab::State X11Grabs::grabKeyboard(std::uint8_t mode) {
    const XcbReply<xcb_input_xi_grab_device_reply_t> reply(xcb_input_xi_grab_device_reply(
        connection_,
        xcb_input_xi_grab_device(connection_, root_, XCB_CURRENT_TIME, XCB_CURSOR_NONE, keyboard_,
                                 mode, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER,
                                 1, &kEvents),
        nullptr));
    return reply ? stateIn(*reply) : X11Grab::State::refused;
}

X11Grab::State X11Grabs::holdKeyboard() {
    return grabKeyboard(XCB_INPUT_GRAB_MODE_22_ASYNC);
}

/// Waits: a busy server may otherwise be given the next keys before it comes to this.
void X11Grabs::releaseKeyboard() {
    const auto request =
        xcb_input_xi_ungrab_device_checked(connection_, XCB_CURRENT_TIME, keyboard_);
    const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection_, request));
}

/// A frozen keyboard: events wait in the server, whoever they will be for.
X11Grab::State X11Grabs::keepKeysBack() {
    return grabKeyboard(XCB_INPUT_GRAB_MODE_22_SYNC);
}

void X11Grabs::deliverKeys() {
    xcb_input_xi_ungrab_device(connection_, XCB_CURRENT_TIME, keyboard_);
    xcb_flush(connection_);
}

} // namespace pello
