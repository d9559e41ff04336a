#pragma once

#include <QFont>

namespace pello {

/// `font`, `factor` times as large, in whichever unit its size is given.
[[nodiscard]] inline QFont scaledFont(QFont font, double factor) {
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * factor);
    } else {
        font.setPixelSize(qRound(font.pixelSize() * factor));
    }
    return font;
}

} // namespace pello
