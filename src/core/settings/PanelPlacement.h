#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// Where the launcher panel stands on its screen, as fractions of the screen's size. A plain value.
struct PanelPlacement {
    /// The panel's horizontal centre, from the screen's left edge.
    double centerX = 0.5;
    /// The panel's upper edge, from the screen's upper edge.
    double top = 0.22;

    /// Parses the stored form, `centerX:top` in decimal; nothing unless both are finite numbers.
    [[nodiscard]] static std::optional<PanelPlacement> fromStorage(std::string_view stored);

    /// The stored form, such as 0.5:0.22.
    [[nodiscard]] std::string storageValue() const;

    friend bool operator==(const PanelPlacement&, const PanelPlacement&) = default;
};

} // namespace pello
