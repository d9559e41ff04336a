#pragma once

#include "platform/linux/X11Connection.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <string_view>

namespace pello {

/// A program that has copied a text, and hands it over step by step as it is told. It counts what
/// the X server complains about: simple programs do not survive that.
class ClipboardHolder {
public:
    ClipboardHolder() {
        xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window_, x11_.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(connection(), window_, atomNamed(connection(), "CLIPBOARD"),
                                XCB_CURRENT_TIME);
        synchronize();
    }

    /// Waits for the next one who asks, and answers that one from now on.
    void awaitRequest() {
        while (requests_.empty()) {
            const XcbReply<xcb_generic_event_t> event(xcb_wait_for_event(connection()));
            ASSERT_TRUE(event) << "the server has gone";
            note(*event);
        }
        request_ = requests_.front();
        requests_.pop_front();
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection(), request_.requestor, XCB_CW_EVENT_MASK, &events);
    }

    /// Writes the text, or the next piece of it.
    void write(std::string_view text) {
        isFetched_ = false;
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, request_.requestor,
                            request_.property, request_.target, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
        synchronize();
    }

    void announcePieces() {
        const std::uint32_t atLeast = 1;
        isFetched_ = false;
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, request_.requestor,
                            request_.property, atomNamed(connection(), "INCR"), 32, 1, &atLeast);
        notify();
    }

    /// Tells that the first thing is written.
    void notify() { notify(request_.property); }
    void refuse() { notify(XCB_ATOM_NONE); }

    /// Whether what was written last has been taken.
    bool isFetched() {
        synchronize();
        return isFetched_;
    }

    int errors() {
        synchronize();
        return errors_;
    }

private:
    [[nodiscard]] xcb_connection_t* connection() const { return x11_.get(); }

    void notify(xcb_atom_t property) {
        xcb_selection_notify_event_t event{};
        event.response_type = XCB_SELECTION_NOTIFY;
        event.requestor = request_.requestor;
        event.selection = request_.selection;
        event.target = request_.target;
        event.property = property;
        // NOLINTNEXTLINE(*-reinterpret-cast): how this library takes its events
        xcb_send_event(connection(), 0, request_.requestor, 0, reinterpret_cast<char*>(&event));
        synchronize();
    }

    void synchronize() {
        const XcbReply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_queued_event(connection())}) {
            note(*event);
        }
    }

    void note(const xcb_generic_event_t& event) {
        // NOLINTBEGIN(*-reinterpret-cast): how this library hands out its events
        switch (event.response_type & 0x7FU) {
        case 0:
            ++errors_;
            break;
        case XCB_SELECTION_REQUEST:
            requests_.push_back(reinterpret_cast<const xcb_selection_request_event_t&>(event));
            break;
        case XCB_PROPERTY_NOTIFY: {
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            isFetched_ = isFetched_ || (change.window == request_.requestor &&
                                        change.state == XCB_PROPERTY_DELETE);
            break;
        }
        default:
            break;
        }
        // NOLINTEND(*-reinterpret-cast)
    }

    X11Connection x11_;
    xcb_window_t window_ = xcb_generate_id(x11_.get());
    std::deque<xcb_selection_request_event_t> requests_;
    xcb_selection_request_event_t request_{};
    bool isFetched_ = false;
    int errors_ = 0;
};

} // namespace pello
