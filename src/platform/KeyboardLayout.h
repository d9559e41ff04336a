#pragma once

#include <cstdint>
#include <string>

namespace pello {

/// What the keys type in the user's current keyboard layout. Main thread only.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;

    /// What the key with virtual code `keyCode` types without modifiers, as the current layout has
    /// it at this moment; empty when it types nothing. UTF-8. A dead key gives its accent.
    [[nodiscard]] virtual std::string character(std::uint16_t keyCode) const = 0;
};

} // namespace pello
