#include "ui/icons/IconPainter.h"

#include "base/Text.h"
#include "ui/icons/SymbolTable.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <array>
#include <variant>

namespace pello {

namespace {

constexpr double kTileRadius = 0.25; // of the tile's side, as the three below
constexpr double kSymbolSize = 0.56;
constexpr double kLetterSize = 0.56;
constexpr double kTextIconSize = 0.75;

/// Colours for tiles with a letter: white reads well on each.
constexpr std::array<QRgb, 8> kTileColors = {0xffc0502f, 0xff2d7d9a, 0xff6a5acd, 0xff2f8550,
                                             0xffa8488c, 0xff516079, 0xff9a6b1f, 0xff3a73d1};

const QColor kPlaceholder(128, 128, 140, 40);

QString toText(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

void paintTile(QPainter& painter, const QRectF& area, const QColor& color) {
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, color.lighter(112));
    gradient.setColorAt(1, color);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    const double radius = area.width() * kTileRadius;
    painter.drawRoundedRect(area, radius, radius);
}

/// Paints `text` in the middle of `area`, as tall as `share` of it and never wider.
void paintText(QPainter& painter, const QRectF& area, const QString& text, QFont font,
               double share) {
    font.setPixelSize(std::max(1, qRound(area.height() * share)));
    const double width = QFontMetricsF(font).horizontalAdvance(text);
    if (width > area.width()) {
        font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * area.width() / width)));
    }
    painter.setFont(font);
    painter.drawText(area, Qt::AlignCenter | Qt::TextDontClip, text);
}

/// Some text fonts have emoji too, in black.
QFont fontFor(const std::string& text, QFont font) {
    if (text::isShownAsEmoji(text)) {
        static const QStringList kEmojiFamilies = {
            QStringLiteral("Noto Color Emoji"), QStringLiteral("Apple Color Emoji"),
            QStringLiteral("Twitter Color Emoji"), QStringLiteral("JoyPixels")};
        font.setFamilies(kEmojiFamilies + font.families());
    }
    return font;
}

void paintLetter(QPainter& painter, const QRect& area, const QString& letter, QFont font) {
    painter.setPen(Qt::white);
    font.setWeight(QFont::DemiBold);
    paintText(painter, area, letter, font, kLetterSize);
}

/// The tile of an item without an icon.
void paintInitial(QPainter& painter, const QRect& area, const std::string& title,
                  const QFont& font) {
    const auto name = text::trimmingWhitespaceAndControls(title);
    const auto characters = text::characterViews(name.substr(0, 64));
    const std::string initial = characters.empty() ? "?" : text::uppercased(characters.front());
    std::size_t hash = 0; // the same in every run, unlike std::hash
    for (const char byte : name) {
        hash = hash * 31 + static_cast<unsigned char>(byte);
    }
    paintTile(painter, area, QColor::fromRgb(kTileColors[hash % kTileColors.size()]));
    paintLetter(painter, area, toText(initial), font);
}

int devicePixels(const QPainter& painter, double side) {
    return qRound(side * painter.device()->devicePixelRatioF());
}

/// `image` in the middle of `area`, in proportion.
void paintImage(QPainter& painter, const QRectF& area, const QImage& image) {
    QRectF target(QPointF(), QSizeF(image.size()).scaled(area.size(), Qt::KeepAspectRatio));
    target.moveCenter(area.center());
    painter.drawImage(target, image);
}

} // namespace

void IconPainter::paint(QPainter& painter, const QRect& area, const LaunchItem& item,
                        const QFont& font, const QColor& textColor) const {
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (const auto* file = std::get_if<LaunchItem::FileIcon>(&item.icon)) {
        paintFile(painter, area, item, *file, font);
    } else if (const auto* symbol = std::get_if<LaunchItem::SymbolIcon>(&item.icon)) {
        paintSymbol(painter, area, *symbol, font);
    } else if (const auto* text = std::get_if<LaunchItem::TextIcon>(&item.icon)) {
        painter.setPen(textColor);
        paintText(painter, area, toText(text->text), fontFor(text->text, font), kTextIconSize);
    }
    painter.restore();
}

void IconPainter::request(const LaunchItem& item, int width, double scale) const {
    if (const auto* file = std::get_if<LaunchItem::FileIcon>(&item.icon)) {
        (void)loader_.ofFile(file->url, qRound(width * scale));
    } else if (const auto* symbol = std::get_if<LaunchItem::SymbolIcon>(&item.icon)) {
        (void)loader_.symbol(drawingOf(symbol->name).iconName, qRound(width * kSymbolSize * scale));
    }
}

void IconPainter::paintFile(QPainter& painter, const QRect& area, const LaunchItem& item,
                            const LaunchItem::FileIcon& icon, const QFont& font) const {
    const auto answer = loader_.ofFile(icon.url, devicePixels(painter, area.width()));
    switch (answer.state) {
    case IconLoader::State::loading:
        paintTile(painter, area, kPlaceholder);
        break;
    case IconLoader::State::ready:
        paintImage(painter, area, answer.image);
        break;
    case IconLoader::State::missing:
        paintInitial(painter, area, item.title, font);
        break;
    }
}

void IconPainter::paintSymbol(QPainter& painter, const QRect& area,
                              const LaunchItem::SymbolIcon& icon, const QFont& font) const {
    const auto& drawing = drawingOf(icon.name);
    paintTile(painter, area, QColor::fromRgb(drawing.tile));
    const double side = area.width() * kSymbolSize;
    const auto answer = loader_.symbol(drawing.iconName, devicePixels(painter, side));
    if (answer.state == IconLoader::State::ready) {
        QRectF inner(0, 0, side, side);
        inner.moveCenter(QRectF(area).center());
        paintImage(painter, inner, answer.image);
    } else if (answer.state == IconLoader::State::missing) {
        paintLetter(painter, area, toText(drawing.fallback), font);
    }
}

} // namespace pello
