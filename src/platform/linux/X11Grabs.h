#pragma once

#include "platform/linux/X11Grab.h"
#include "platform/linux/X11Modifiers.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

namespace pello {

/// The keys that one client takes from applications. They are given up with its connection.
///
/// Keys are grabbed by the input extension, whose grabs are no conflict with those of window
/// managers, and whose newest wins. So they have to be claimed again after others may have claimed
/// theirs. No key waits for an answer of this program at any time.
class X11Grabs {
public:
    /// `root` is the window whose keys are taken, `keyboard` the merged one.
    X11Grabs(xcb_connection_t* connection, xcb_window_t root, std::uint16_t keyboard,
             const TapRequest& request);

    /// Claims every combo, with the locks in any state, before whoever did earlier. Waits for the
    /// server.
    void claim(const X11Modifiers& modifiers);

    [[nodiscard]] const std::vector<X11Grab>& grabs() const { return grabs_; }

    /// Takes every key from here to `releaseKeyboard`: `held`, `takenByAnother` or `refused`. Both
    /// wait for the server.
    X11Grab::State holdKeyboard();
    void releaseKeyboard();

    /// Lets the server keep every key back from here to `deliverKeys`, with the same answers. The
    /// keys are lost to nobody: whoever has the focus then gets them.
    X11Grab::State keepKeysBack();
    void deliverKeys();

private:
    X11Grab::State grabKeyboard(std::uint8_t mode);
    void giveUp();

    xcb_connection_t* connection_;
    xcb_window_t root_;
    std::uint16_t keyboard_;
    std::vector<X11Grab> grabs_;
    X11Modifiers modifiers_;
};

} // namespace pello
