#pragma once

#include <QIcon>
#include <QPainter>

namespace pello {

/// The program's icon: the letter on a tile, as in the icon theme, but drawn without reading files.
[[nodiscard]] QIcon pelloIcon();

/// Paints the letter of the icon, a p that is a lens, in `colour` over the square `area`.
void paintPelloLetter(QPainter& painter, const QRectF& area, const QColor& colour);

} // namespace pello
