#include "ui/theme/PanelMetrics.h"

#include <algorithm>
#include <cmath>

namespace pello {

namespace {

constexpr double kDesignFontSize = 16;
constexpr double kSmallestFontSize = 9;
constexpr double kLargestFontSize = 48;
constexpr double kSmallestReadable = 10; // pixels

} // namespace

PanelMetrics PanelMetrics::forFontSize(double fontSize) {
    const double size = std::isfinite(fontSize)
                            ? std::clamp(fontSize, kSmallestFontSize, kLargestFontSize)
                            : kDesignFontSize;
    PanelMetrics metrics;
    metrics.scale = size / kDesignFontSize;
    for (int* measure :
         {&metrics.width, &metrics.radius, &metrics.headerHeight, &metrics.headerPadding,
          &metrics.headerGap, &metrics.searchSymbol, &metrics.rowPitch, &metrics.rowMargin,
          &metrics.rowRadius, &metrics.rowPadding, &metrics.icon, &metrics.listPadding,
          &metrics.chipPadding, &metrics.chipRadius}) {
        *measure = static_cast<int>(std::lround(*measure * metrics.scale));
    }
    metrics.titlePixels *= metrics.scale;
    metrics.answerPixels *= metrics.scale;
    metrics.subtitlePixels = std::max(kSmallestReadable, metrics.subtitlePixels * metrics.scale);
    metrics.fieldPixels *= metrics.scale;
    return metrics;
}

} // namespace pello
