#include "ui/panel/PanelShadow.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace pello {

namespace {

constexpr double kSoftness = 0.36; // standard deviation, in margins
constexpr double kDrop = 0.2;      // how far the shadow falls, in margins

/// A box that spans `start` to `end`, blurred: how dark it is at each of `count` pixels, 0 to 1.
///
/// The blur of a rectangle is the product of the blurs of its two sides, so that the shadow takes
/// one multiplication for each pixel.
std::vector<double> blurredSide(int count, double start, double end, double deviation) {
    std::vector<double> side(static_cast<std::size_t>(count));
    const double width = deviation * std::numbers::sqrt2;
    for (std::size_t i = 0; i < side.size(); ++i) {
        const double at = static_cast<double>(i) + 0.5;
        side[i] = (std::erf((at - start) / width) - std::erf((at - end) / width)) / 2;
    }
    return side;
}

QImage render(const QSize& size, int margin, const QColor& color) {
    const double deviation = margin * kSoftness;
    const double drop = margin * kDrop;
    const double inset = deviation / 2; // keeps the sides from looking wider than the panel
    const auto across =
        blurredSide(size.width(), margin + inset, size.width() - margin - inset, deviation);
    const auto down = blurredSide(size.height(), margin + drop + inset / 2,
                                  size.height() - margin + drop - inset, deviation);
    QImage image(size, QImage::Format_Alpha8);
    for (int y = 0; y < size.height(); ++y) {
        uchar* line = image.scanLine(y);
        const double strength = down[static_cast<std::size_t>(y)] * color.alpha();
        for (std::size_t x = 0; x < across.size(); ++x) {
            line[x] = static_cast<uchar>(across[x] * strength);
        }
    }
    return image;
}

} // namespace

void PanelShadow::paint(QPainter& painter, const QRect& panel, int margin, const QColor& color) {
    const QRect area = panel.adjusted(-margin, -margin, margin, margin);
    if (image_.size() != area.size() || color_ != color) {
        image_ = render(area.size(), margin, color);
        color_ = color;
    }
    painter.drawImage(area.topLeft(), image_);
}

} // namespace pello
