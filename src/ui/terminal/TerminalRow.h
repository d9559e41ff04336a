#pragma once

#include "core/controller/RowRemark.h"
#include "core/items/SearchResult.h"
#include "scripts/ScriptFailure.h"
#include "ui/terminal/TerminalScreen.h"

#include <optional>
#include <string_view>

/// One line per result and per failure: what it is, more about it, and at the end of the line the
/// accessory, each elided so that none runs into another.
namespace pello::terminal {

/// How a result is shown, beside what it is.
struct RowLook {
    bool isSelected = false;
    /// What the row says was done with it.
    std::optional<RowRemark> remark;
    /// Why it stands there, in place of its subtitle; empty for none.
    std::string_view reason;
};

void putResult(TerminalScreen& screen, int row, const SearchResult& result, const RowLook& look);

void putFailure(TerminalScreen& screen, int row, const ScriptFailure& failure);

} // namespace pello::terminal
