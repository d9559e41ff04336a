#pragma once

#include "core/items/LaunchItem.h"
#include "ui/icons/IconLoader.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRect>

namespace pello {

/// Paints the icons of items: images, white symbols on tiles, characters.
///
/// An icon that nobody has is a tile with the title's first letter, always in the same colour.
class IconPainter {
public:
    /// `loader` must outlive the painter.
    explicit IconPainter(IconLoader& loader) : loader_(loader) {}

    /// Fills the square `area` with the icon of `item`. Texts are painted in `font`, those without
    /// a tile in `textColor`. While an image is still on its way, a faint tile holds its place.
    void paint(QPainter& painter, const QRect& area, const LaunchItem& item, const QFont& font,
               const QColor& textColor) const;

    /// Lets the image of `item`, if it has one, be loaded for a square `width` wide on a device
    /// with `scale` pixels for each: before it is painted, so that it need not be painted twice.
    void request(const LaunchItem& item, int width, double scale) const;

private:
    void paintFile(QPainter& painter, const QRect& area, const LaunchItem& item,
                   const LaunchItem::FileIcon& icon, const QFont& font) const;
    void paintSymbol(QPainter& painter, const QRect& area, const LaunchItem::SymbolIcon& icon,
                     const QFont& font) const;

    IconLoader& loader_;
};

} // namespace pello
