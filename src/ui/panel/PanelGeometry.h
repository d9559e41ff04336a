#pragma once

#include "core/settings/PanelPlacement.h"

#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>

/// Where the panel stands. All measures are in logical pixels.
namespace pello::geometry {

/// The upper left corner of a panel of `size` at `placement` on `screen`, moved as little as needed
/// for the panel to lie on the screen. `size` is the one that must find room: a panel that has no
/// rows yet passes the size with a few.
[[nodiscard]] QPoint topLeft(const PanelPlacement& placement, const QRect& screen,
                             const QSize& size);

/// The placement of a panel `width` wide whose upper left corner is at `corner` of `screen`.
[[nodiscard]] PanelPlacement placement(const QPoint& corner, int width, const QRect& screen);

/// `area` with round corners, for displays that cannot blend.
[[nodiscard]] QRegion roundedRegion(const QRect& area, int radius);

} // namespace pello::geometry
