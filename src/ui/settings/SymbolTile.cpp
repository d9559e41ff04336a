#include "ui/settings/SymbolTile.h"

#include <QFont>
#include <QPainter>

namespace pello {
namespace {

constexpr double kRadius = 0.27; // these are in sides
constexpr double kFont = 0.64;

} // namespace

QPixmap symbolTile(const SymbolDrawing& drawing, int side, double ratio) {
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(drawing.tile));
    const QRect tile(0, 0, side, side);
    painter.drawRoundedRect(tile, kRadius * side, kRadius * side);
    QFont font;
    font.setPixelSize(qRound(kFont * side));
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(
        tile, Qt::AlignCenter,
        QString::fromUtf8(drawing.fallback.data(), qsizetype(drawing.fallback.size())));
    return pixmap;
}

} // namespace pello
