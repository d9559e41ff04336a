#pragma once

#include "platform/MainLoop.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace pello {

class X11EventTap;

/// Sees to it that what is typed while a window opens reaches that window.
///
/// Between the key that summons a window and its focus some milliseconds pass, in which other keys
/// would go to the window before; and a menu holds the keyboard, so that a window that opens
/// meanwhile gets the focus but no keys. Main thread only.
class X11KeyboardClaim {
public:
    enum class Outcome {
        /// Nobody holds the keyboard, or not any more.
        free,
        /// Somebody holds it who does not let go at Escape.
        held
    };
    using Done = std::function<void(Outcome outcome)>;

    /// Both must outlive this object.
    X11KeyboardClaim(MainLoop& loop, X11EventTap& tap);
    ~X11KeyboardClaim();
    X11KeyboardClaim(const X11KeyboardClaim&) = delete;
    X11KeyboardClaim& operator=(const X11KeyboardClaim&) = delete;

    /// Keeps keys back until `window` has the focus, or for a moment where it does not come: then
    /// they go wherever the focus is. Where another program holds the keyboard, presses Escape for
    /// the user until it lets go or did not several times. `done` is called once: at once where the
    /// keyboard is free or the tap does not listen, else soon; not when another claim or the end of
    /// this object comes before. For windows about to be shown: whoever has the focus sees it leave
    /// and return.
    void begin(std::uint32_t window, const Done& done);

private:
    class Keyboard;

    void end();
    void attempt(int attempt, const Done& done);
    bool pressEscape();

    MainLoop& loop_;
    X11EventTap& tap_;
    std::unique_ptr<Keyboard> keyboard_;
    std::uint32_t window_ = 0;
    Subscription next_;
    Subscription deadline_;
};

} // namespace pello
