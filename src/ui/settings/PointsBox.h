#pragma once

#include <QDoubleSpinBox>
#include <QLocale>

namespace pello {

/// A box for a size in points, which shows no more digits than the size has.
class PointsBox final : public QDoubleSpinBox {
public:
    PointsBox() {
        setDecimals(1);
        setSuffix(QStringLiteral(" pt"));
        setAlignment(Qt::AlignRight);
    }

    [[nodiscard]] QString textFromValue(double value) const override {
        return locale().toString(value, 'f', QLocale::FloatingPointShortest);
    }
};

} // namespace pello
