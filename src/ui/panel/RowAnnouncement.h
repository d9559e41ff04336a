#pragma once

#include <QWidget>

namespace pello {

/// Tells assistive technology that keys are about `row` of `rows` now, although the keyboard stays
/// in the field. Nothing happens while none is in use.
void announceRow(QWidget& rows, int row);

} // namespace pello
