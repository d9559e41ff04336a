#include "ui/panel/ResultList.h"

#include "ui/panel/RowAnnouncement.h"

#include <QAccessible>
#include <QCursor>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace pello {

ResultList::ResultList(const PanelStyle& style, IconLoader& icons)
    : style_(style), delegate_(style, icons), icons_(icons) {
    setModel(&model_);
    setItemDelegate(&delegate_);
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setFocusPolicy(Qt::NoFocus);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    setAccessibleName(QStringLiteral("Results"));
    connect(&model_, &QAbstractItemModel::modelReset, this, [this] { announced_.clear(); });
    restyle();
}

void ResultList::restyle() {
    const int padding = style_.metrics.listPadding;
    setViewportMargins(0, padding, 0, padding);
    verticalScrollBar()->setSingleStep(style_.metrics.rowPitch);
    scheduleDelayedItemsLayout();
}

void ResultList::setResults(std::span<const SearchResult> results, int selection) {
    requestIcons(results);
    model_.setResults(results);
    const QModelIndex current = model_.index(selection, 0);
    if (current != currentIndex()) {
        setCurrentIndex(current);
    }
    announceSelection();
}

/// What the selected row tells assistive technology, while there is any.
QString ResultList::spokenRow() const {
    if (!QAccessible::isActive() || !isVisible()) {
        return {};
    }
    const QModelIndex current = currentIndex();
    return current.data(Qt::AccessibleTextRole).toString() +
           current.data(Qt::AccessibleDescriptionRole).toString();
}

/// Also of the same row once the rows were made anew: nobody can ask the former one any more.
void ResultList::announceSelection() {
    const QString row = spokenRow();
    if (std::exchange(announced_, row) != row) {
        announceRow(*this, currentIndex().row());
    }
}

void ResultList::announceNews() {
    const QString row = spokenRow();
    if (std::exchange(announced_, row) != row) {
        announceChange(*this, currentIndex().row());
    }
}

/// Of as many rows as are mostly seen. A worker loads them while this thread lays the rows out.
void ResultList::requestIcons(std::span<const SearchResult> results) {
    constexpr std::size_t kSeenAtOnce = 12;
    for (const SearchResult& result : results.first(std::min(results.size(), kSeenAtOnce))) {
        delegate_.requestIcon(*result.item, devicePixelRatioF());
    }
    icons_.begin();
}

void ResultList::repaintIcons() {
    viewport()->update(delegate_.iconColumn(viewport()->rect(), layoutDirection()));
}

void ResultList::paintEvent(QPaintEvent* event) {
    delegate_.damage = event->rect();
    QListView::paintEvent(event);
}

void ResultList::setRemark(std::optional<RowRemark> remark) {
    if (std::exchange(delegate_.remark, remark) != remark) {
        const std::string_view words = remark ? remarkText(*remark) : "";
        model_.setRemark(currentIndex().row(),
                         QString::fromUtf8(words.data(), qsizetype(words.size())));
        viewport()->update();
        if (remark) {
            announceNews();
        } else {
            announced_ = spokenRow();
        }
    }
}

void ResultList::setReasons(std::span<const std::string> reasons) {
    model_.setReasons(reasons);
    announceNews();
}

int ResultList::heightWithin(int room) const {
    const int padding = 2 * style_.metrics.listPadding;
    const int fitting = std::max(1, (room - padding) / style_.metrics.rowPitch);
    const int rows = std::min(model_.rowCount(), fitting);
    return rows == 0 ? 0 : rows * style_.metrics.rowPitch + padding;
}

int ResultList::rowsInView() const {
    return std::max(1, viewport()->height() / style_.metrics.rowPitch);
}

void ResultList::forgetPointerMoves() {
    pointer_.reset(); // to ask where it is would wait for the server
    pressedRow_ = -1;
}

void ResultList::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() != Qt::NoButton && pressedRow_ < 0) {
        event->ignore(); // pressed beside the rows: the panel is dragged
        return;
    }
    const QPoint pointer = event->globalPosition().toPoint();
    // Rows also move under a pointer at rest, which is told of as well.
    const bool hasMoved = pointer_ && pointer != *pointer_;
    pointer_ = pointer;
    if (const int row = rowAt(*event); hasMoved && row >= 0 && onHover) {
        onHover(row);
    }
}

void ResultList::mousePressEvent(QMouseEvent* event) {
    pressedRow_ = event->button() == Qt::LeftButton ? rowAt(*event) : -1;
    event->setAccepted(pressedRow_ >= 0);
}

void ResultList::mouseReleaseEvent(QMouseEvent* event) {
    const int row = rowAt(*event);
    event->setAccepted(pressedRow_ >= 0);
    if (event->button() == Qt::LeftButton && row >= 0 && row == pressedRow_ && onClick) {
        onClick(row);
    }
    pressedRow_ = -1;
}

void ResultList::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

int ResultList::rowAt(const QMouseEvent& event) const {
    return indexAt(event.position().toPoint()).row();
}

} // namespace pello
