#pragma once

#include <QColor>

/// How well colours are told apart, as the web's guidelines for accessibility count it.
namespace pello::contrast {

/// What text needs to its ground.
inline constexpr double kReadable = 4.5;

/// From 1, for the same colour, to 21, for black and white.
[[nodiscard]] double ratio(const QColor& one, const QColor& other);

/// `colour` if it is told well enough from `other`, else the nearest to it that is: darker beside
/// a light one, lighter beside a dark one.
[[nodiscard]] QColor readable(const QColor& colour, const QColor& other);

} // namespace pello::contrast
