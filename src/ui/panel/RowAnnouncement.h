#pragma once

#include <QAbstractItemView>
#include <QWidget>

namespace pello {

/// Tells assistive technology that keys are about `row` of `rows` now, although the keyboard stays
/// in the field. Nothing happens while none is in use.
void announceRow(QWidget& rows, int row);

/// Tells it that the row, the same as before, says something else now.
void announceChange(QAbstractItemView& rows, int row);

} // namespace pello
