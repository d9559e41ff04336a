#pragma once

#include <optional>
#include <string>

namespace pello {

/// What an X server is and can do, for people who look for a fault.
struct X11ServerFacts {
    /// Who made it, and its release.
    std::string name;
    /// The version of its input extension, such as "2.4"; nothing without it.
    std::optional<std::string> input;
    /// Whether keys can be watched there as the launcher does.
    bool isInputEnough = false;
    bool hasKeyboardExtension = false;
    bool hasTestExtension = false;
    /// Whether a program shows icons in its tray.
    bool hasTray = false;

    /// Of the server that DISPLAY names; nothing where there is none. Waits for it.
    [[nodiscard]] static std::optional<X11ServerFacts> read();
};

} // namespace pello
