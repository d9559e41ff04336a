#pragma once

#include <QRgb>

#include <string_view>

namespace pello {

/// How a named symbol is drawn: a white drawing on a tile.
struct SymbolDrawing {
    /// The name that items use.
    std::string_view symbol;
    /// The drawing in the desktop's icon theme.
    std::string_view iconName;
    /// Drawn where the theme has no such icon: one character.
    std::string_view fallback;
    QRgb tile = 0;
};

/// How `symbol` is drawn; one that is not known gets a drawing that suits any action.
[[nodiscard]] const SymbolDrawing& drawingOf(std::string_view symbol);

} // namespace pello
