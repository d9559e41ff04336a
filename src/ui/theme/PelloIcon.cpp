#include "ui/theme/PelloIcon.h"

#include <QLinearGradient>

namespace pello {
namespace {

constexpr double kSide = 64; // what the measures below are parts of
constexpr QRectF kTile(4, 4, 56, 56);
constexpr double kTileRadius = 15;
constexpr QRgb kTop = 0xff7b6cf6;
constexpr QRgb kBottom = 0xff3b5bdb;
constexpr QPointF kLens(34, 27.5);
constexpr double kLensRadius = 11;
constexpr double kStemEnd = 48.5;
constexpr double kStroke = 6.5;

QPixmap drawn(int side) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / kSide, side / kSide);
    QLinearGradient ground(kTile.topLeft(), kTile.bottomLeft());
    ground.setColorAt(0, QColor::fromRgb(kTop));
    ground.setColorAt(1, QColor::fromRgb(kBottom));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(kTile, kTileRadius, kTileRadius);
    paintPelloLetter(painter, QRectF(0, 0, kSide, kSide), Qt::white);
    return pixmap;
}

} // namespace

QIcon pelloIcon() {
    QIcon icon;
    for (const int side : {16, 32, 48, 64, 128}) {
        icon.addPixmap(drawn(side));
    }
    return icon;
}

void paintPelloLetter(QPainter& painter, const QRectF& area, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.scale(area.width() / kSide, area.height() / kSide);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, kStroke, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(kLens, kLensRadius, kLensRadius);
    const double stem = kLens.x() - kLensRadius;
    painter.drawLine(QPointF(stem, kLens.y()), QPointF(stem, kStemEnd));
    painter.restore();
}

} // namespace pello
