#include "ui/guide/StepDots.h"

#include "ui/settings/SettingsPalette.h"

#include <QPainter>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

constexpr int kDot = 8;
constexpr int kPitch = 18;
constexpr double kShare = 0.3;

} // namespace

StepDots::StepDots(int count, QWidget* parent) : QWidget(parent), count_(count) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCurrent(0);
}

void StepDots::setCurrent(int step) {
    current_ = step;
    setAccessibleName(u"Step %1 of %2"_s.arg(step + 1).arg(count_));
    update();
}

QSize StepDots::sizeHint() const {
    return {(count_ - 1) * kPitch + kDot, kDot};
}

void StepDots::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int step = 0; step < count_; ++step) {
        painter.setBrush(step == current_ ? palette().color(QPalette::Highlight)
                                          : SettingsPalette::blend(palette(), kShare));
        painter.drawEllipse(step * kPitch, 0, kDot, kDot);
    }
}

} // namespace pello
