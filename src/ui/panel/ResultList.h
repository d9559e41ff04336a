#pragma once

#include "core/controller/RowRemark.h"
#include "core/items/SearchResult.h"
#include "ui/panel/ResultDelegate.h"
#include "ui/panel/ResultModel.h"

#include <QListView>

#include <functional>
#include <optional>
#include <span>
#include <string>

namespace pello {

/// The panel's rows. Never has the keyboard: keys go to the field.
class ResultList final : public QListView {
public:
    /// Both must outlive the list; call `restyle` when the style changed.
    ResultList(const PanelStyle& style, IconLoader& icons);

    void restyle();

    /// Shows `results`, with the row `selection` marked and in view;
    /// none is marked when that is negative.
    void setResults(std::span<const SearchResult> results, int selection);

    /// Says in the selected row what was done with it, or says so no longer.
    void setRemark(std::optional<RowRemark> remark);

    /// Shows a reason below each title, or the subtitles again where there are none.
    void setReasons(std::span<const std::string> reasons);

    /// Paints the icons anew: some have arrived.
    void repaintIcons();

    /// How high the list should be where there is `room`: as high as all its rows or as many whole
    /// ones as fit, at least one. 0 without rows.
    [[nodiscard]] int heightWithin(int room) const;

    /// How many whole rows are in view; at least one.
    [[nodiscard]] int rowsInView() const;

    /// Takes where the pointer stands, without having moved there.
    void forgetPointerMoves();

    /// The pointer moved onto a row.
    std::function<void(int row)> onHover;
    /// A row was clicked.
    std::function<void(int row)> onClick;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void requestIcons(std::span<const SearchResult> results);
    [[nodiscard]] int rowAt(const QMouseEvent& event) const;
    [[nodiscard]] QString spokenRow() const;
    void announceSelection();
    void announceNews();

    const PanelStyle& style_;
    ResultModel model_;
    ResultDelegate delegate_;
    IconLoader& icons_;
    std::optional<QPoint> pointer_; // on the screen, where it was seen last
    int pressedRow_ = -1;
    QString announced_; // the row that was told last, in words
};

} // namespace pello
