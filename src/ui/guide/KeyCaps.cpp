#include "ui/guide/KeyCaps.h"

#include "ui/settings/SettingsPalette.h"

#include <QPainter>

#include <algorithm>

namespace pello {
namespace {

constexpr double kPadding = 0.6; // these are in heights of the font
constexpr double kHeight = 1.65;
constexpr double kGap = 0.35;
constexpr double kRadius = 0.35;
constexpr double kLineShare = 0.28;
constexpr double kGroundShare = 0.06;

} // namespace

KeyCaps::KeyCaps(const QStringList& keys, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setKeys(keys);
}

void KeyCaps::setKeys(const QStringList& keys) {
    keys_ = keys;
    setAccessibleName(keys.join(QStringLiteral(" + ")));
    updateGeometry();
    update();
}

int KeyCaps::capWidth(const QString& key) const {
    const int height = fontMetrics().height();
    return std::max(qRound(kHeight * height),
                    fontMetrics().horizontalAdvance(key) + qRound(2 * kPadding * height));
}

QSize KeyCaps::sizeHint() const {
    const int height = fontMetrics().height();
    int width = 0;
    for (const QString& key : keys_) {
        width += (width > 0 ? qRound(kGap * height) : 0) + capWidth(key);
    }
    return {width, qRound(kHeight * height) + 3};
}

/// Each cap has a thicker lower edge: its side, seen from above.
void KeyCaps::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int unit = fontMetrics().height();
    const double radius = kRadius * unit;
    const QColor line = SettingsPalette::blend(palette(), kLineShare);
    const QColor ground = SettingsPalette::blend(palette(), kGroundShare);
    double x = 0.5;
    for (const QString& key : keys_) {
        const QRectF cap(x, 0.5, capWidth(key) - 1, qRound(kHeight * unit) - 1);
        painter.setPen(line);
        painter.setBrush(line);
        painter.drawRoundedRect(cap.translated(0, 2), radius, radius);
        painter.setBrush(ground);
        painter.drawRoundedRect(cap, radius, radius);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(cap, Qt::AlignCenter, key);
        x += capWidth(key) + qRound(kGap * unit);
    }
}

} // namespace pello
