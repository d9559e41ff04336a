#pragma once

#include "core/items/SearchResult.h"
#include "scripts/ScriptFailure.h"
#include "ui/terminal/TerminalScreen.h"

/// One line per result and per failure: what it is, more about it, and at the end of the line the
/// accessory, each elided so that none runs into another.
namespace pello::terminal {

enum class RowState { plain, selected, copied };

void putResult(TerminalScreen& screen, int row, const SearchResult& result, RowState state);

void putFailure(TerminalScreen& screen, int row, const ScriptFailure& failure);

} // namespace pello::terminal
