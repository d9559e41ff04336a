#pragma once

#include "desktop/Box.h"

#include <X11/Xlib.h>
#include <X11/extensions/XShm.h>

#include <cstdint>
#include <vector>

namespace pello::bench {

/// What the screen showed when it was last looked at, so that painting the same again is no change.
class ScreenCopy {
public:
    /// Reads the whole screen. `display` must outlive the copy and know MIT-SHM.
    explicit ScreenCopy(Display* display);

    /// Reads this part anew, and returns the part of it whose pixels are others than before.
    Box update(Box part);

private:
    Display* display_;
    XShmSegmentInfo shared_{};
    Box screen_;
    std::vector<std::uint32_t> pixels_;
};

} // namespace pello::bench
