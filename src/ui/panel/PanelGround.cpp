#include "ui/panel/PanelGround.h"

#include <QPainter>

#include <cmath>

namespace pello {
namespace {

/// The whole ground, slowly and exactly.
void draw(QPainter& painter, const QRectF& area, const PanelGround::Look& look) {
    const double radius = look.radius;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.ground);
    painter.drawRoundedRect(area, radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(look.line);
    painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
}

QImage drawnCorners(const PanelGround::Look& look, double scale) {
    const int side = 2 * look.radius;
    const int pixels = static_cast<int>(std::lround(side * scale));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(painter, QRectF(0, 0, side, side), look);
    return image;
}

} // namespace

void PanelGround::paint(QPainter& painter, const QRect& area, const Look& look) {
    const double scale = painter.device()->devicePixelRatioF();
    if (scale != std::floor(scale)) { // the parts would not meet at whole pixels
        draw(painter, area, look);
        return;
    }
    if (look != look_ || scale != scale_) {
        look_ = look;
        scale_ = scale;
        corners_ = drawnCorners(look, scale);
    }
    paintCorners(painter, area);
    paintSides(painter, area);
}

void PanelGround::paintCorners(QPainter& painter, const QRect& area) {
    const int radius = look_.radius;
    const double pixels = radius * scale_;
    const int right = area.right() + 1 - radius;
    const int bottom = area.bottom() + 1 - radius;
    const QRectF source(0, 0, pixels, pixels);
    const QSize size(radius, radius);
    painter.drawImage(QRectF(area.topLeft(), size), corners_, source);
    painter.drawImage(QRectF(QPoint(right, area.top()), size), corners_,
                      source.translated(pixels, 0));
    painter.drawImage(QRectF(QPoint(area.left(), bottom), size), corners_,
                      source.translated(0, pixels));
    painter.drawImage(QRectF(QPoint(right, bottom), size), corners_,
                      source.translated(pixels, pixels));
}

void PanelGround::paintSides(QPainter& painter, const QRect& area) const {
    const int radius = look_.radius;
    const int across = area.width() - 2 * radius;
    const int down = area.height() - 2 * radius;
    const int left = area.left() + radius;
    const int top = area.top() + radius;
    painter.fillRect(left, area.top() + 1, across, radius - 1, look_.ground);
    painter.fillRect(left, top + down, across, radius - 1, look_.ground);
    painter.fillRect(area.left() + 1, top, area.width() - 2, down, look_.ground);

    // A line lies on the ground, as it does in the corners.
    for (const QRect& side :
         {QRect(left, area.top(), across, 1), QRect(left, area.bottom(), across, 1),
          QRect(area.left(), top, 1, down), QRect(area.right(), top, 1, down)}) {
        painter.fillRect(side, look_.ground);
        painter.fillRect(side, look_.line);
    }
}

} // namespace pello
