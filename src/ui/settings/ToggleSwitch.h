#pragma once

#include <QCheckBox>

namespace pello {

/// A check box that looks like a switch. Its name is for assistive technology; it shows no text.
class ToggleSwitch final : public QCheckBox {
public:
    explicit ToggleSwitch(const QString& name);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pello
