#pragma once

#include "scripts/ScriptFailure.h"
#include "ui/theme/PanelStyle.h"

#include <QPainter>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace pello {

/// The failures of scripts, in rows below the results. Never has the keyboard: keys go to the
/// field.
class FailureRows final : public QWidget {
public:
    /// `style` must outlive the rows.
    explicit FailureRows(const PanelStyle& style);

    /// Shows `failures`; hidden without any. A selected one stays selected while it is there, and
    /// is followed by the one that takes its place.
    void setFailures(const std::vector<ScriptFailure>& failures);

    /// How high the rows are; 0 without failures.
    [[nodiscard]] int fullHeight() const;

    [[nodiscard]] int count() const { return static_cast<int>(failures_.size()); }

    /// A row in words, and where it is.
    [[nodiscard]] QString spoken(int row) const;
    [[nodiscard]] QRect rowRect(int row) const;

    /// The row that keys are about; nothing while they are about the results.
    [[nodiscard]] std::optional<int> selection() const { return selection_; }
    void select(std::optional<int> row);

    /// What the keys do. False when no row is selected.
    bool openSelected();
    bool dismissSelected();
    bool revealSelected();

    /// The user wants to read a failure, or to be rid of it.
    std::function<void(const ScriptFailure&)> onOpen;
    std::function<void(const ScriptFailure&)> onDismiss;
    /// The user wants to see the script.
    std::function<void(const ScriptFailure&)> onReveal;
    /// Another row is selected, or none.
    std::function<void()> onSelect;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] const ScriptFailure* selected() const;
    bool tell(const std::function<void(const ScriptFailure&)>& action);
    [[nodiscard]] QRect chipRect(int row) const;
    void paintRow(QPainter& painter, int row) const;
    void paintWarning(QPainter& painter, const QRect& area) const;

    const PanelStyle& style_;
    std::vector<ScriptFailure> failures_;
    std::optional<int> selection_;
};

} // namespace pello
