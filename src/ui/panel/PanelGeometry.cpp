#include "ui/panel/PanelGeometry.h"

#include <algorithm>
#include <cmath>

namespace pello::geometry {

QPoint topLeft(const PanelPlacement& placement, const QRect& screen, const QSize& size) {
    const double x = screen.x() + placement.centerX * screen.width() - size.width() / 2.0;
    const double y = screen.y() + placement.top * screen.height();
    const auto within = [](double wanted, int start, int room) {
        return static_cast<int>(
            std::lround(std::clamp<double>(wanted, start, start + std::max(0, room))));
    };
    return {within(x, screen.x(), screen.width() - size.width()),
            within(y, screen.y(), screen.height() - size.height())};
}

PanelPlacement placement(const QPoint& corner, int width, const QRect& screen) {
    return {.centerX = (corner.x() - screen.x() + width / 2.0) / screen.width(),
            .top = double(corner.y() - screen.y()) / screen.height()};
}

QRegion roundedRegion(const QRect& area, int radius) {
    QRegion region(area.adjusted(0, radius, 0, -radius));
    for (int y = 0; y < radius; ++y) {
        const double rise = radius - y - 0.5;
        const int inset = qRound(radius - std::sqrt(radius * radius - rise * rise));
        const int width = area.width() - 2 * inset;
        region += QRect(area.x() + inset, area.y() + y, width, 1);
        region += QRect(area.x() + inset, area.bottom() - y, width, 1);
    }
    return region;
}

} // namespace pello::geometry
