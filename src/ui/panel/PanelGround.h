#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

class QPainter;

namespace pello {

/// The rounded ground of the panel with the line around it.
///
/// It lies under everything, so that it is painted with every keystroke: the corners are drawn once
/// and copied, the rest is filled.
class PanelGround {
public:
    struct Look {
        QColor ground;
        QColor line;
        int radius = 0;
        friend bool operator==(const Look&, const Look&) = default;
    };

    void paint(QPainter& painter, const QRect& area, const Look& look);

private:
    void paintCorners(QPainter& painter, const QRect& area);
    void paintSides(QPainter& painter, const QRect& area) const;

    Look look_;
    double scale_ = 0; // device pixels a pixel
    QImage corners_;   // all four, side by side: a ground of the least size
};

} // namespace pello
