#pragma once

#include <QPalette>

/// The colours of the settings window: the desktop's own, with the two that its palette has no
/// good ones for, and what is selected dark or light enough for its text.
namespace pello::SettingsPalette {

/// For explanations and for what is not so important: reads at 4.5:1 or better.
inline constexpr QPalette::ColorRole kDim = QPalette::PlaceholderText;
/// For what is wrong.
inline constexpr QPalette::ColorRole kProblem = QPalette::BrightText;

/// `desktop` with the two roles above filled in; they and selected text read at 4.5:1 or better on
/// every ground on which they stand.
[[nodiscard]] QPalette make(const QPalette& desktop);

/// A colour between the ground of cards, at 0, and their text, at 1.
[[nodiscard]] QColor blend(const QPalette& palette, double share);

} // namespace pello::SettingsPalette
