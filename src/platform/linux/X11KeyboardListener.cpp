#include "platform/linux/X11KeyboardListener.h"

#include "platform/ModifierFlags.h"
#include "platform/linux/X11InputVersion.h"
#include "platform/linux/X11Key.h"
#include "platform/linux/X11KeyCodes.h"
#include "platform/linux/X11Keyboards.h"
#include "platform/linux/X11Xkb.h"

#include <xcb/xinput.h>

namespace pello {
namespace {

/// An event as the library hands it out, in the form of its kind.
template <class Event>
const Event& as(const xcb_generic_event_t& event) {
    // NOLINTNEXTLINE(*-reinterpret-cast): how this library hands out its events
    return reinterpret_cast<const Event&>(event);
}

/// The first bytes that all events of the keyboard extension have.
struct XkbEvent {
    std::uint8_t response_type;
    std::uint8_t xkbType;
};

/// What both kinds of selected events need, in one request.
void selectInput(xcb_connection_t* connection, xcb_window_t root) {
    struct {
        xcb_input_event_mask_t devices = {XCB_INPUT_DEVICE_ALL, 1};
        std::uint32_t ofDevices = XCB_INPUT_XI_EVENT_MASK_HIERARCHY;
        xcb_input_event_mask_t merged = {XCB_INPUT_DEVICE_ALL_MASTER, 1};
        std::uint32_t ofMerged = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS |
                                 XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE |
                                 XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
    } const wanted;
    xcb_input_xi_select_events(connection, root, 2, &wanted.devices);
}

/// Whether the focus came, and no grab began or ended, and not the pointer under such a focus.
bool isFocus(const xcb_focus_in_event_t& event) {
    return (event.mode == XCB_NOTIFY_MODE_NORMAL || event.mode == XCB_NOTIFY_MODE_WHILE_GRABBED) &&
           event.detail != XCB_NOTIFY_DETAIL_POINTER;
}

/// Whether `event` came after the request of this number was answered; numbers wrap.
bool isAfter(const xcb_generic_event_t& event, std::uint32_t request) {
    return static_cast<std::int32_t>(event.full_sequence - request) >= 0;
}

} // namespace

bool X11KeyboardListener::begin() {
    xcb_connection_t* x = connection_.get();
    if (!isAlive() || !X11InputVersion::of(x).isEnough()) {
        return false;
    }
    xkbEvent_ = watchXkb(x, XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                                XCB_XKB_EVENT_TYPE_STATE_NOTIFY);
    const std::uint16_t keyboard = X11Keyboards::of(x).merged;
    if (xkbEvent_ == 0 || keyboard == 0) {
        return false;
    }
    inputOpcode_ = xcb_get_extension_data(x, &xcb_input_id)->major_opcode;
    windowManager_ = atomNamed(x, "_NET_SUPPORTING_WM_CHECK");
    selectInput(x, connection_.root());
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(x, connection_.root(), XCB_CW_EVENT_MASK, &events);
    map_ = askMap();
    grabs_ = std::make_unique<X11Grabs>(x, connection_.root(), keyboard, request_);
    grabs_->claim(map_.modifiers);
    if (request_.capsLockActivates) {
        resetCapsLock(); // a press that finds it on would not put it on
    }
    const auto state = askState();
    if (!state) {
        return false;
    }
    stream_.begin(map_, state->state);
    notifier_.reset(new QSocketNotifier(xcb_get_file_descriptor(x), QSocketNotifier::Read));
    QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                     [this] { shared_from_this()->readEvents(); });
    readEventsSoon();
    return true;
}

void X11KeyboardListener::end() {
    isOver_ = true;
    stream_.end();
    notifier_.reset();
    claims_ = {};
}

/// Answers of the server that were waited for may have brought events along, which make the
/// connection readable no more.
void X11KeyboardListener::readEventsSoon() {
    loop_.post([weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->readEvents();
        }
    });
}

void X11KeyboardListener::readEvents() {
    const auto self = shared_from_this(); // the handler may remove the tap
    while (!isOver_) {
        const XcbReply<xcb_generic_event_t> event(xcb_poll_for_event(connection_.get()));
        if (snapshot_ && (!event || isAfter(*event, snapshot_->request))) {
            applySnapshot();
        }
        if (isOver_ || (!event && !isMapStale_)) {
            break;
        }
        if (event) {
            handle(*event);
        } else {
            readMap();
        }
    }
    if (!isAlive()) {
        notifier_.reset();
    }
}

void X11KeyboardListener::handle(const xcb_generic_event_t& event) {
    const std::uint8_t type = event.response_type & 0x7FU;
    if (type == XCB_GE_GENERIC && as<xcb_ge_generic_event_t>(event).extension == inputOpcode_) {
        handleInput(event);
    } else if (type == xkbEvent_) {
        handleXkb(event);
    } else if (type == XCB_MAPPING_NOTIFY) {
        isMapStale_ = true;
    } else if (type == XCB_PROPERTY_NOTIFY &&
               as<xcb_property_notify_event_t>(event).atom == windowManager_) {
        claimLater();
    } else if (type == XCB_FOCUS_IN && isFocus(as<xcb_focus_in_event_t>(event))) {
        deliverKeys();
    }
}

void X11KeyboardListener::handleInput(const xcb_generic_event_t& event) {
    const auto type = as<xcb_ge_generic_event_t>(event).event_type;
    if (type == XCB_INPUT_HIERARCHY) {
        refresh();
        return;
    }
    if (isMapStale_) {
        readMap();
    }
    if (type == XCB_INPUT_KEY_PRESS || type == XCB_INPUT_KEY_RELEASE) {
        const auto& key = as<xcb_input_key_press_event_t>(event);
        const auto code = static_cast<xcb_keycode_t>(key.detail);
        const auto modifiers = static_cast<std::uint8_t>(key.mods.effective);
        if (type == XCB_INPUT_KEY_PRESS) {
            const bool isRepeat = (key.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) != 0;
            stream_.grabbedPress(code, modifiers, isRepeat);
        } else {
            stream_.grabbedRelease(code, modifiers);
        }
        return;
    }
    const auto code = static_cast<xcb_keycode_t>(as<xcb_input_raw_key_press_event_t>(event).detail);
    if (type == XCB_INPUT_RAW_KEY_PRESS) {
        stream_.rawPress(code);
    } else if (type == XCB_INPUT_RAW_KEY_RELEASE) {
        stream_.rawRelease(code);
    } else if (type == XCB_INPUT_RAW_BUTTON_PRESS) {
        stream_.buttonPress();
    }
}

void X11KeyboardListener::handleXkb(const xcb_generic_event_t& event) {
    if (as<XkbEvent>(event).xkbType == XCB_XKB_STATE_NOTIFY) {
        const auto& state = as<xcb_xkb_state_notify_event_t>(event);
        stream_.setModifiers(state.mods, state.lockedMods);
    } else {
        isMapStale_ = true;
    }
}

/// The keyboard's map changed: modifiers may be others, and window managers claim their keys.
void X11KeyboardListener::readMap() {
    isMapStale_ = false;
    const X11KeyStream::Map map = askMap();
    const bool areModifiersNew = map.modifiers != map_.modifiers;
    map_ = map;
    stream_.setMap(map);
    if (areModifiersNew) {
        claim();
    }
    refresh();
    claimLater();
}

X11KeyStream::Map X11KeyboardListener::askMap() const {
    X11KeyStream::Map map = {.modifiers = X11Modifiers::of(connection_.get()),
                             .isCapsLockHyper = false,
                             .doesCapsLockLock = false};
    const auto capsLock = readKey(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, x11Keys::kCapsLock);
    if (capsLock) {
        map.isCapsLockHyper = capsLock->setsModifiers(map.modifiers.mask(modifiers::kShortcutMask));
        const auto action = capsLock->firstAction();
        map.doesCapsLockLock = action && action->type == XCB_XKB_SA_TYPE_LOCK_MODS &&
                               (action->lockmods.mask & XCB_MOD_MASK_LOCK) != 0;
    }
    return map;
}

void X11KeyboardListener::claimLater() {
    claimsToCome_ = kClaims.size();
    for (std::size_t i = 0; i < kClaims.size(); ++i) {
        claims_.at(i) = loop_.after(kClaims.at(i), [this] {
            --claimsToCome_;
            claim();
        });
    }
}

void X11KeyboardListener::claim() {
    grabs_->claim(map_.modifiers);
    readEventsSoon();
}

void X11KeyboardListener::refresh() {
    if (isAlive()) {
        snapshot_ = askState();
        claim();
    }
}

std::optional<X11KeyboardListener::Snapshot> X11KeyboardListener::askState() const {
    xcb_connection_t* x = connection_.get();
    const auto keysAsked = xcb_query_keymap(x);
    const auto stateAsked = xcb_xkb_get_state(x, XCB_XKB_ID_USE_CORE_KBD);
    const XcbReply<xcb_query_keymap_reply_t> keys(xcb_query_keymap_reply(x, keysAsked, nullptr));
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(x, stateAsked, nullptr));
    if (!keys || !state) {
        return std::nullopt;
    }
    Snapshot snapshot = {.state = {.modifiers = state->mods, .locked = state->lockedMods},
                         .request = keysAsked.sequence};
    for (unsigned key = 0; key < snapshot.state.down.size(); ++key) {
        snapshot.state.down.set(key, ((keys->keys[key / 8] >> (key % 8)) & 1U) != 0);
    }
    return snapshot;
}

void X11KeyboardListener::applySnapshot() {
    if (const auto snapshot = std::exchange(snapshot_, std::nullopt)) {
        stream_.resynchronise(snapshot->state);
    }
}

void X11KeyboardListener::resetCapsLock() {
    xcb_xkb_latch_lock_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, XCB_MOD_MASK_LOCK, 0, 0, 0,
                             0, 0, 0);
    xcb_flush(connection_.get());
}

std::uint64_t X11KeyboardListener::heldModifiers() {
    const XcbReply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
        connection_.get(), xcb_xkb_get_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD), nullptr));
    readEventsSoon();
    const unsigned held = state ? unsigned{state->baseMods} | state->latchedMods : 0U;
    return map_.modifiers.flags(static_cast<std::uint8_t>(held)) & modifiers::kShortcutMask;
}

void X11KeyboardListener::holdKeyboard() {
    isHolding_ = grabs_->holdKeyboard() == X11Grab::State::held;
    isKeepingBack_ = isKeepingBack_ && !isHolding_;
    stream_.setHolding(isHolding_);
    readEventsSoon();
}

void X11KeyboardListener::releaseKeyboard() {
    if (std::exchange(isHolding_, false)) {
        grabs_->releaseKeyboard();
        stream_.setHolding(false);
        readEventsSoon();
    }
}

X11EventTap::Keeping X11KeyboardListener::keepKeysBack(xcb_window_t window) {
    if (isHolding_) {
        return X11EventTap::Keeping::refused;
    }
    const std::uint32_t events = XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &events);
    const X11Grab::State state = grabs_->keepKeysBack();
    isKeepingBack_ = state == X11Grab::State::held;
    readEventsSoon();
    if (isKeepingBack_) {
        return X11EventTap::Keeping::begun;
    }
    return state == X11Grab::State::takenByAnother ? X11EventTap::Keeping::takenByAnother
                                                   : X11EventTap::Keeping::refused;
}

void X11KeyboardListener::deliverKeys() {
    if (std::exchange(isKeepingBack_, false)) {
        grabs_->deliverKeys();
        stream_.grabEnded();
    }
}

} // namespace pello
