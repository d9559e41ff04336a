#pragma once

#include "ui/settings/RecordTable.h"

#include <QTableView>

namespace pello {

/// A table of records. Return edits, Delete removes, Alt with the arrows moves the row, and so does
/// dragging it.
class RecordView final : public QTableView {
public:
    /// `table` must outlive the view.
    explicit RecordView(RecordTable& table);

    /// Adds a record and begins to edit it.
    void addRecord();
    void removeCurrent();
    /// Moves the current row up, or down, by one.
    void moveCurrentUp() { moveCurrent(-1); }
    void moveCurrentDown() { moveCurrent(+1); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions actions) override;

private:
    void moveCurrent(int step);

    RecordTable& table_;
};

} // namespace pello
