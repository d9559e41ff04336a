#include "ui/settings/SettingsCard.h"

#include "ui/settings/SettingsPalette.h"

#include <QPainter>

namespace pello {
namespace {

constexpr int kRadius = 9;
constexpr int kInset = 16;
constexpr double kLineShare = 0.13;

} // namespace

void SettingsCard::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor line = SettingsPalette::blend(palette(), kLineShare);
    painter.setPen(line);
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    for (const QObject* child : children()) {
        const auto* row = qobject_cast<const QWidget*>(child);
        const bool isRow = row != nullptr && row->isVisible() && row->x() <= 1; // from edge to edge
        if (isRow && row->y() > 1) {
            painter.fillRect(kInset, row->y(), width() - 2 * kInset, 1, line);
        }
    }
}

} // namespace pello
