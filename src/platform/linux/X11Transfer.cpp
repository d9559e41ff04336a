#include "platform/linux/X11Transfer.h"

#include <algorithm>
#include <utility>

//  asked ──┬─ refused, or no text ─────────────────────────────────────────> over
//          ├─ the text ────────────────────────────────────────────────────> over
//          └─ "in pieces" ──> inPieces ──(property taken, next one comes)──┐
//                                ^ └────── an empty one ──────────────────────> over
//                                └─────────────────────────────────────────┘

namespace pello {
namespace {

std::size_t lengthOf(const xcb_get_property_reply_t& reply) {
    return static_cast<std::size_t>(xcb_get_property_value_length(&reply));
}

} // namespace

X11Transfer::Atoms::Atoms(xcb_connection_t* connection)
    : clipboard(atomNamed(connection, "CLIPBOARD")),
      utf8(atomNamed(connection, "UTF8_STRING")),
      inPieces(atomNamed(connection, "INCR")),
      property(atomNamed(connection, "PELLO_SELECTION")) {}

X11Transfer::X11Transfer(xcb_connection_t* connection, const Atoms& atoms, std::size_t mostBytes)
    : connection_(connection),
      atoms_(atoms),
      window_(xcb_generate_id(connection)),
      mostBytes_(mostBytes) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_convert_selection(connection, window_, atoms.clipboard, atoms.utf8, atoms.property,
                          XCB_CURRENT_TIME);
    xcb_flush(connection);
}

X11Transfer::~X11Transfer() {
    xcb_destroy_window(connection_, window_);
    xcb_flush(connection_);
}

bool X11Transfer::take(const xcb_generic_event_t& event) {
    // NOLINTBEGIN(*-reinterpret-cast): how this library hands out its events
    switch (event.response_type & 0x7FU) {
    case XCB_SELECTION_NOTIFY: {
        const auto& answer = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
        if (answer.requestor != window_ || phase_ != Phase::asked) {
            return false;
        }
        start(answer.property);
        return true;
    }
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window != window_ || change.atom != atoms_.property ||
            change.state != XCB_PROPERTY_NEW_VALUE || phase_ != Phase::inPieces) {
            return false;
        }
        takePiece();
        return true;
    }
    default:
        return false;
    }
    // NOLINTEND(*-reinterpret-cast)
}

void X11Transfer::start(xcb_atom_t written) {
    const auto answer = written == atoms_.property ? takeProperty() : nullptr;
    if (answer && answer->type == atoms_.inPieces) { // now that it is taken, they come
        phase_ = Phase::inPieces;
    } else if (answer && answer->type == atoms_.utf8 && answer->format == 8) {
        add(*answer);
        end(State::complete);
    } else {
        end(State::none);
    }
}

void X11Transfer::takePiece() {
    const auto piece = takeProperty();
    if (!piece || piece->type == XCB_ATOM_NONE) {
        return;
    }
    const bool isText = piece->type == atoms_.utf8 && piece->format == 8;
    if (lengthOf(*piece) == 0 && piece->bytes_after == 0) {
        end(isText || !text_.empty() ? State::complete : State::none);
    } else if (isText) {
        add(*piece);
    }
}

void X11Transfer::end(State state) {
    phase_ = Phase::over;
    if (state_ == State::underWay) {
        state_ = state;
    }
}

void X11Transfer::add(const xcb_get_property_reply_t& piece) {
    if (lengthOf(piece) + piece.bytes_after > mostBytes_ - text_.size()) {
        state_ = State::tooLong;
        text_ = {};
        mostBytes_ = 0;
    } else if (state_ == State::underWay) {
        text_.append(static_cast<const char*>(xcb_get_property_value(&piece)), lengthOf(piece));
    }
}

/// Reads the property as far as it may be wanted, and makes room for the next one.
XcbReply<xcb_get_property_reply_t> X11Transfer::takeProperty() const {
    const std::size_t room = mostBytes_ - text_.size();
    const auto quads = static_cast<std::uint32_t>(std::min<std::size_t>(room / 4 + 1, 1U << 28U));
    const auto request = xcb_get_property(connection_, 1, window_, atoms_.property, XCB_ATOM_ANY, 0,
                                          std::max(quads, 1U));
    XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, request, nullptr));
    if (reply && reply->bytes_after > 0) { // so it is still there
        xcb_delete_property(connection_, window_, atoms_.property);
        xcb_flush(connection_);
    }
    return reply;
}

} // namespace pello
