#include "ui/panel/RowAnnouncement.h"

#include <QAccessible>

namespace pello {

// Screen readers speak what gets the focus, and only that: selected rows of a list that does not
// have it are passed over. So the row is said to have it.

void announceRow(QWidget& rows, int row) {
    if (!QAccessible::isActive() || row < 0 || !rows.isVisible()) {
        return;
    }
    QAccessibleEvent event(&rows, QAccessible::Focus);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

// What has the focus already is passed over, too, whatever it says by now. So it becomes another
// one: rows are made anew for a model that was.
void announceChange(QAbstractItemView& rows, int row) {
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(&rows, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
        announceRow(rows, row);
    }
}

} // namespace pello
