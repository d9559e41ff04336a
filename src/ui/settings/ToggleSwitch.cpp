#include "ui/settings/ToggleSwitch.h"

#include "ui/settings/SettingsPalette.h"

#include <QPainter>

namespace pello {
namespace {

constexpr QSize kTrack(40, 22);
constexpr int kFocusRoom = 3;
constexpr int kKnobMargin = 3;

} // namespace

ToggleSwitch::ToggleSwitch(const QString& name) {
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ToggleSwitch::sizeHint() const {
    return kTrack.grownBy({kFocusRoom, kFocusRoom, kFocusRoom, kFocusRoom});
}

bool ToggleSwitch::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void ToggleSwitch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : 0.45);
    const QColor accent = palette().color(QPalette::Highlight);
    const QRectF track(QPoint((width() - kTrack.width()) / 2, (height() - kTrack.height()) / 2),
                       kTrack);
    if (hasFocus()) {
        painter.setPen(QPen(accent, 2));
        const double radius = track.height() / 2 + 2;
        painter.drawRoundedRect(track.adjusted(-2, -2, 2, 2), radius, radius);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? accent : SettingsPalette::blend(palette(), 0.45));
    painter.drawRoundedRect(track, track.height() / 2, track.height() / 2);
    const double knob = track.height() - 2.0 * kKnobMargin;
    const double left =
        isChecked() ? track.right() - kKnobMargin - knob : track.left() + kKnobMargin;
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(left, track.top() + kKnobMargin, knob, knob));
}

} // namespace pello
