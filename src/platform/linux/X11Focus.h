#pragma once

#include "platform/linux/Xcb.h"

#include <string>
#include <vector>

namespace pello {

/// The window that has the keyboard; none while it passes from one to another. Where no window
/// manager gives it to windows, the root of the screen stands for whatever is under the pointer.
/// Waits for the server.
[[nodiscard]] xcb_window_t windowWithKeyboard(xcb_connection_t* connection);

/// The class and instance names (WM_CLASS) of the application that `window` is part of, in lower
/// case; empty when there are none. Waits for the server.
[[nodiscard]] std::vector<std::string> classNames(xcb_connection_t* connection,
                                                  xcb_window_t window);

} // namespace pello
