#include "ui/guide/StateMark.h"

#include "ui/settings/SettingsPalette.h"
#include "ui/theme/PanelTheme.h"

#include <QPainter>

namespace pello {

using namespace Qt::StringLiterals;

StateMark::StateMark(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setState(state_);
}

void StateMark::setState(GuideCheck::State state) {
    state_ = state;
    setAccessibleName(word(state));
    update();
}

QSize StateMark::sizeHint() const {
    const int side = fontMetrics().height() + 2;
    return {side, side};
}

QString StateMark::word(GuideCheck::State state) {
    switch (state) {
    case GuideCheck::State::works:
        return u"Works"_s;
    case GuideCheck::State::absent:
        return u"Not needed"_s;
    case GuideCheck::State::wrong:
        return u"Does not work"_s;
    }
    return {};
}

QColor StateMark::colour() const {
    const PanelTheme theme = PanelTheme::matching(palette());
    switch (state_) {
    case GuideCheck::State::works:
        return theme.success;
    case GuideCheck::State::wrong:
        return theme.failure;
    case GuideCheck::State::absent:
        break;
    }
    return palette().color(SettingsPalette::kDim);
}

/// A tick, a dash or an exclamation mark on a disc.
void StateMark::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = std::min(width(), height()) / 20.0;
    painter.scale(unit, unit);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour());
    painter.drawEllipse(QRectF(1, 1, 18, 18));
    painter.setPen(QPen(PanelTheme::matching(palette()).ground, 2.2, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    switch (state_) {
    case GuideCheck::State::works:
        painter.drawPolyline(QPolygonF({{5.8, 10.4}, {8.8, 13.4}, {14.2, 7.2}}));
        break;
    case GuideCheck::State::absent:
        painter.drawLine(QPointF(6.5, 10), QPointF(13.5, 10));
        break;
    case GuideCheck::State::wrong:
        painter.drawLine(QPointF(10, 5.5), QPointF(10, 10.8));
        painter.drawPoint(QPointF(10, 14.4));
        break;
    }
}

} // namespace pello
