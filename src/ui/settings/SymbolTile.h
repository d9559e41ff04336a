#pragma once

#include "ui/icons/SymbolTable.h"

#include <QPixmap>

namespace pello {

/// `drawing` as a tile of `side` logical pixels, for a screen with `ratio` pixels to each of them.
[[nodiscard]] QPixmap symbolTile(const SymbolDrawing& drawing, int side, double ratio);

} // namespace pello
