#include "ui/theme/Contrast.h"

#include <algorithm>
#include <cmath>

namespace pello::contrast {
namespace {

constexpr int kSteps = 32;

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto part = [share](int one, int other) {
        return static_cast<int>(std::lround(one + share * (other - one)));
    };
    return {part(from.red(), to.red()), part(from.green(), to.green()),
            part(from.blue(), to.blue())};
}

} // namespace

double ratio(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readable(const QColor& colour, const QColor& other) {
    const QColor end = luminance(other) > luminance(colour) ? Qt::black : Qt::white;
    for (int step = 0; step < kSteps; ++step) {
        const QColor found = mixed(colour, end, static_cast<double>(step) / kSteps);
        if (ratio(found, other) >= kReadable) {
            return found;
        }
    }
    return end;
}

} // namespace pello::contrast
