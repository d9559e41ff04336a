#pragma once

#include "platform/linux/Xcb.h"

#include <cstddef>
#include <optional>
#include <string>

namespace pello {

/// One text on its way from the client that has copied it.
///
/// That client writes it to a window that never shows: whole, or piece by piece, a new one each
/// time that the former was taken. The window stays until the client is done with it, for one that
/// finds it gone may not survive that. Any one thread.
class X11Transfer {
public:
    /// The names that the clients agree on.
    struct Atoms {
        explicit Atoms(xcb_connection_t* connection);

        xcb_atom_t clipboard;
        xcb_atom_t utf8;
        xcb_atom_t inPieces;
        xcb_atom_t property;
    };

    enum class State {
        /// Nothing has come yet, or not all.
        underWay,
        /// There is none: nobody has copied anything, or it is no text.
        none,
        /// It is there.
        complete,
        /// It is longer than wanted. It may go on coming, and is thrown away.
        tooLong
    };

    /// Asks for what is on the clipboard, as far as it has `mostBytes` at most. `connection` and
    /// `atoms` must outlive this object.
    X11Transfer(xcb_connection_t* connection, const Atoms& atoms, std::size_t mostBytes);
    ~X11Transfer();
    X11Transfer(const X11Transfer&) = delete;
    X11Transfer& operator=(const X11Transfer&) = delete;

    /// Goes on with what the server says, if it concerns this transfer; true when it does.
    bool take(const xcb_generic_event_t& event);

    [[nodiscard]] State state() const { return state_; }

    /// Whether the other client has nothing more to do, so that this object may go.
    [[nodiscard]] bool isOver() const { return phase_ == Phase::over; }

    /// The text; to be taken once.
    [[nodiscard]] std::string takeText() { return std::move(text_); }

private:
    enum class Phase { asked, inPieces, over };

    void start(xcb_atom_t written);
    void takePiece();
    void end(State state);
    void add(const xcb_get_property_reply_t& piece);
    [[nodiscard]] XcbReply<xcb_get_property_reply_t> takeProperty() const;

    xcb_connection_t* connection_;
    const Atoms& atoms_;
    xcb_window_t window_;
    std::size_t mostBytes_;
    Phase phase_ = Phase::asked;
    State state_ = State::underWay;
    std::string text_;
};

} // namespace pello
