#pragma once

#include <QWidget>

namespace pello {

/// How far the user has come, as a row of dots.
class StepDots final : public QWidget {
public:
    StepDots(int count, QWidget* parent);

    void setCurrent(int step);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int count_;
    int current_ = 0;
};

} // namespace pello
