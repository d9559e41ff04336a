#pragma once

#include "platform/KeyboardLayout.h"

namespace pello {

/// The current keyboard layout input source. A layout without Unicode data types nothing.
class CarbonKeyboardLayout final : public KeyboardLayout {
public:
    [[nodiscard]] std::string character(std::uint16_t keyCode) const override;
};

} // namespace pello
