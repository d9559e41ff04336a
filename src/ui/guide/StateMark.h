#pragma once

#include "ui/guide/GuideCheck.h"

#include <QWidget>

namespace pello {

/// A sign that something works, is absent or is wrong, as high as a line of text.
class StateMark final : public QWidget {
public:
    explicit StateMark(QWidget* parent);

    void setState(GuideCheck::State state);

    [[nodiscard]] QSize sizeHint() const override;

    /// The state in a word or two.
    [[nodiscard]] static QString word(GuideCheck::State state);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QColor colour() const;

    GuideCheck::State state_ = GuideCheck::State::works;
};

} // namespace pello
