#pragma once

#include "ui/theme/PanelStyle.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace pello {

/// A sentence below the rows about something that went wrong; a click on it dismisses it.
class NoticeRow final : public QWidget {
public:
    /// `style` must outlive the row.
    explicit NoticeRow(const PanelStyle& style);

    /// Shows `notice`; hidden without one.
    void setNotice(const std::optional<std::string>& notice);

    /// How high the row is in a panel of `width`; 0 without a notice.
    [[nodiscard]] int fullHeight(int width) const;

    std::function<void()> onDismiss;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] int textWidth(int width) const;

    const PanelStyle& style_;
    QString text_;
};

} // namespace pello
