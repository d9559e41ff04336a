#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRect>

namespace pello {

/// The soft shadow around the panel; computed once per size.
class PanelShadow {
public:
    /// Paints the shadow of a panel that fills `panel`, out to `margin` beyond it.
    void paint(QPainter& painter, const QRect& panel, int margin, const QColor& color);

private:
    QImage image_;
    QColor color_;
};

} // namespace pello
