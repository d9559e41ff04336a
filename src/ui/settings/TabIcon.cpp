#include "ui/settings/TabIcon.h"

#include "ui/icons/SymbolTable.h"

#include <QFont>
#include <QPainter>
#include <QPixmap>

#include <array>
#include <cstddef>
#include <string_view>

namespace pello {
namespace {

constexpr std::array kSymbols{std::string_view("gearshape"),
                              std::string_view("circle.lefthalf.filled"),
                              std::string_view("list.bullet.rectangle"),
                              std::string_view("arrow.up.right.square"), std::string_view("link")};
constexpr int kSide = 22;
constexpr double kRadius = 6;
constexpr int kFontPixels = 14;

QPixmap drawn(const SymbolDrawing& drawing, double ratio) {
    QPixmap pixmap(QSize(kSide, kSide) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(drawing.tile));
    const QRect tile(0, 0, kSide, kSide);
    painter.drawRoundedRect(tile, kRadius, kRadius);
    QFont font;
    font.setPixelSize(kFontPixels);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(
        tile, Qt::AlignCenter,
        QString::fromUtf8(drawing.fallback.data(), qsizetype(drawing.fallback.size())));
    return pixmap;
}

} // namespace

QIcon tabIcon(SettingsTab tab) {
    const SymbolDrawing& drawing = drawingOf(kSymbols.at(static_cast<std::size_t>(tab)));
    QIcon icon;
    for (const double ratio : {1.0, 2.0, 3.0}) {
        icon.addPixmap(drawn(drawing, ratio), QIcon::Normal);
        icon.addPixmap(drawn(drawing, ratio), QIcon::Selected);
    }
    return icon;
}

} // namespace pello
