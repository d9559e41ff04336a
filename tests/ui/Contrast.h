#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace pello {

inline constexpr double kReadable = 4.5;

/// The contrast of two colours, 1 to 21, by the formula of the web's guidelines.
inline double contrastOf(const QColor& one, const QColor& other) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double channel) {
            return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace pello
