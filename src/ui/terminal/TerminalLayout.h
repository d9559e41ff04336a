#pragma once

#include "ui/terminal/TerminalScreen.h"
#include "ui/terminal/TerminalSize.h"
#include "ui/terminal/TerminalView.h"

/// Where everything stands in a terminal's window: the field at the top, the rows below it, then
/// the failures, and at the bottom what is asked or told. What there is no room for is left out;
/// the field is always there.
namespace pello::terminal {

[[nodiscard]] TerminalScreen layOut(const TerminalView& view, TerminalSize size);

/// How many rows are seen at a time; at least one.
[[nodiscard]] int rowsAtOnce(const TerminalView& view, TerminalSize size);

} // namespace pello::terminal
