#include "ui/theme/PanelTheme.h"

namespace pello {

PanelTheme PanelTheme::light() {
    return {.ground = QColor(0xfa, 0xfa, 0xfc),
            .line = QColor(0, 0, 0, 28),
            .text = QColor(0x1c, 0x1c, 0x1e),
            .dim = QColor(0x5e, 0x5e, 0x66),
            .accent = QColor(0x1a, 0x54, 0xc8),
            .selection = QColor(0xd6, 0xe3, 0xfc),
            .chip = QColor(0xec, 0xec, 0xf0),
            .failure = QColor(0xb3, 0x26, 0x1e),
            .failureGround = QColor(0xfb, 0xe5, 0xe4),
            .success = QColor(0x1a, 0x74, 0x3a),
            .shadow = QColor(0, 0, 0, 110),
            .glassOpacity = 0.94};
}

PanelTheme PanelTheme::dark() {
    return {.ground = QColor(0x20, 0x20, 0x26),
            .line = QColor(255, 255, 255, 30),
            .text = QColor(0xf2, 0xf2, 0xf5),
            .dim = QColor(0xb0, 0xb0, 0xba),
            .accent = QColor(0x86, 0xb0, 0xff),
            .selection = QColor(0x34, 0x40, 0x5c),
            .chip = QColor(0x3a, 0x3a, 0x44),
            .failure = QColor(0xff, 0x8f, 0x86),
            .failureGround = QColor(0x3d, 0x28, 0x2b),
            .success = QColor(0x62, 0xd0, 0x83),
            .shadow = QColor(0, 0, 0, 150),
            .glassOpacity = 0.93};
}

PanelTheme PanelTheme::matching(const QPalette& palette) {
    const int ground = palette.color(QPalette::Window).lightness();
    const int text = palette.color(QPalette::WindowText).lightness();
    return ground < text ? dark() : light();
}

} // namespace pello
