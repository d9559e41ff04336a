#pragma once

#include "ui/panel/MarkedText.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>

namespace pello {

/// How marked letters stand out.
struct MarkStyle {
    QColor color;
    QFont::Weight weight = QFont::DemiBold;
};

/// Paints `title` on one line in `area`, in the painter's pen, with the marked letters in `marks`;
/// text too long is shortened in its middle. `baseline` is the vertical position of the letters'
/// feet. Text starts at the side where the interface starts, whatever its own direction.
void paintLine(QPainter& painter, const QRectF& area, double baseline, const MarkedText& title,
               const QFont& font, const MarkStyle& marks);

} // namespace pello
