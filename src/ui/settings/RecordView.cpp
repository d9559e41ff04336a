#include "ui/settings/RecordView.h"

#include "ui/settings/CellEditor.h"

#include <QDrag>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace pello {
namespace {

constexpr int kFirstColumn = 110;
constexpr int kMiddleColumn = 150;
constexpr int kLeastHeight = 260;
constexpr int kRowPadding = 12;
constexpr QPoint kDragOffset(24, 14);

} // namespace

RecordView::RecordView(RecordTable& table) : table_(table) {
    setModel(&table);
    setItemDelegate(new CellEditor(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setTabKeyNavigation(false); // Tab leads out of the table
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setDragDropMode(InternalMove);
    setDragDropOverwriteMode(false);
    setDropIndicatorShown(true);
    setMinimumHeight(kLeastHeight);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setColumnWidth(0, kFirstColumn);
    if (table.columnCount({}) > 2) {
        setColumnWidth(1, kMiddleColumn);
    }
}

void RecordView::addRecord() {
    table_.append();
    const QModelIndex cell = table_.index(table_.rowCount({}) - 1, 0);
    scrollTo(cell);
    setCurrentIndex(cell);
    setFocus();
    edit(cell);
}

void RecordView::removeCurrent() {
    const int row = currentIndex().row();
    if (row >= 0) {
        table_.removeRow(row);
        selectRow(std::min(row, table_.rowCount({}) - 1));
    }
}

void RecordView::moveCurrent(int step) {
    const int row = currentIndex().row();
    const int to = row + step;
    if (row >= 0 && to >= 0 && to < table_.rowCount({})) {
        table_.moveRow({}, row, {}, step > 0 ? to + 1 : to); // before which row it goes
        scrollTo(currentIndex());
    }
}

/// The picture of the row hangs below the pointer, where it does not hide the line between the rows
/// that it would be dropped at.
void RecordView::startDrag(Qt::DropActions /*actions*/) {
    const QModelIndex first = currentIndex().siblingAtColumn(0);
    const QModelIndex last = currentIndex().siblingAtColumn(table_.columnCount({}) - 1);
    const QRect row = visualRect(first).united(visualRect(last));
    auto* drag = new QDrag(this); // deletes itself
    drag->setMimeData(table_.mimeData({first}));
    drag->setPixmap(viewport()->grab(row));
    drag->setHotSpot({kDragOffset.x(), -kDragOffset.y()});
    drag->exec(Qt::MoveAction);
}

void RecordView::keyPressEvent(QKeyEvent* event) {
    const bool isAlt = event->modifiers().testFlag(Qt::AltModifier);
    if (isAlt && event->key() == Qt::Key_Up) {
        moveCurrentUp();
    } else if (isAlt && event->key() == Qt::Key_Down) {
        moveCurrentDown();
    } else if (event->key() == Qt::Key_Delete) {
        removeCurrent();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (state() != EditingState) { // else the key ended that, and comes here afterwards
            edit(currentIndex());
        }
    } else {
        QTableView::keyPressEvent(event);
    }
}

} // namespace pello
