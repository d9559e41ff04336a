#include "ui/panel/Chip.h"

#include <QFontMetrics>

namespace pello {

int chipWidth(const PanelStyle& style, const QString& text) {
    return QFontMetrics(style.subtitleFont).horizontalAdvance(text) + 2 * style.metrics.chipPadding;
}

void paintChip(QPainter& painter, const QRect& area, const PanelStyle& style, const QString& text) {
    const QFontMetrics metrics(style.subtitleFont);
    QRect pill = area;
    pill.setHeight(metrics.height() + style.metrics.chipPadding);
    pill.moveCenter(area.center());
    painter.setPen(Qt::NoPen);
    painter.setBrush(style.theme.chip);
    painter.drawRoundedRect(pill, style.metrics.chipRadius, style.metrics.chipRadius);
    paintChipText(painter, pill, style, text);
}

void paintChipText(QPainter& painter, const QRect& area, const PanelStyle& style,
                   const QString& text) {
    const QFontMetrics metrics(style.subtitleFont);
    const QRect inner = area.adjusted(style.metrics.chipPadding, 0, -style.metrics.chipPadding, 0);
    painter.setPen(style.theme.dim);
    painter.setFont(style.subtitleFont);
    const bool fits = chipWidth(style, text) <= area.width();
    painter.drawText(inner, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     fits ? text : metrics.elidedText(text, Qt::ElideRight, inner.width()));
}

} // namespace pello
