#pragma once

#include "core/controller/RowRemark.h"
#include "core/items/SearchResult.h"
#include "platform/Dialogs.h"
#include "scripts/ScriptFailure.h"

#include <optional>
#include <span>
#include <string>

namespace pello {

/// What there is to show in the terminal. Borrows the rows; made for one layout.
struct TerminalView {
    /// What the text is for when it is not searched for; empty otherwise.
    std::string prompt;
    std::string beforeCaret;
    std::string afterCaret;
    /// What would complete the text.
    std::string completion;

    std::span<const SearchResult> results;
    int selection = 0;
    /// What the selected row says was done with it.
    std::optional<RowRemark> remark;
    /// Shown instead of the subtitles, unless empty.
    std::span<const std::string> reasons;

    std::span<const ScriptFailure> failures;
    /// Keys are about this failure instead of the results.
    std::optional<int> selectedFailure;
    /// The failure that is read, in place of the results, and its first line that is shown.
    const ScriptFailure* opened = nullptr;
    int firstLine = 0;

    std::optional<std::string> notice;
    std::optional<Dialogs::Confirmation> question;
    /// What was done last.
    std::string status;
};

} // namespace pello
