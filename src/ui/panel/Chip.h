#pragma once

#include "ui/theme/PanelStyle.h"

#include <QPainter>
#include <QRect>
#include <QString>

namespace pello {

/// How wide a pill with `text` is.
[[nodiscard]] int chipWidth(const PanelStyle& style, const QString& text);

/// Paints a pill with `text`, shortened to the width of `area` and in the middle of its height.
void paintChip(QPainter& painter, const QRect& area, const PanelStyle& style, const QString& text);

/// The text alone, in the place that it has on the pill.
void paintChipText(QPainter& painter, const QRect& area, const PanelStyle& style,
                   const QString& text);

} // namespace pello
