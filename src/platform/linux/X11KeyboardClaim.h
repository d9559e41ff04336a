#pragma once

#include "platform/MainLoop.h"

#include <functional>
#include <memory>

namespace pello {

/// Gets the keyboard back from an open menu.
///
/// A menu holds the keyboard, so that a window that opens meanwhile gets the focus but no keys.
/// Main thread only.
class X11KeyboardClaim {
public:
    enum class Outcome {
        /// Nobody holds the keyboard, or not any more.
        free,
        /// Somebody holds it who does not let go at Escape.
        held
    };
    using Done = std::function<void(Outcome outcome)>;

    /// `isOurs` tells whether this program's own tap has the keyboard at the moment, which ends by
    /// itself. `loop` must outlive this object.
    X11KeyboardClaim(MainLoop& loop, std::function<bool()> isOurs);
    ~X11KeyboardClaim();
    X11KeyboardClaim(const X11KeyboardClaim&) = delete;
    X11KeyboardClaim& operator=(const X11KeyboardClaim&) = delete;

    /// Sees whether another program holds the keyboard, and presses Escape for the user if so,
    /// until it lets go or did not several times. `done` is called once: at once where the keyboard
    /// is free or there is no server, else soon; not when another claim or the end of this object
    /// comes before. For windows about to be shown: whoever has the focus sees it leave and return.
    void begin(const Done& done);

    /// Gives up; `done` is not called any more.
    void cancel() { next_.reset(); }

private:
    class Client;

    void attempt(int attempt, const Done& done);

    MainLoop& loop_;
    std::function<bool()> isOurs_;
    std::unique_ptr<Client> client_;
    Subscription next_;
};

} // namespace pello
