#pragma once

#include "core/settings/QueryHistory.h"

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// Walks through the queries of the history, and back to the text that was typed before.
class HistoryRecall {
public:
    /// `history` must outlive the walk.
    explicit HistoryRecall(const QueryHistory& history) : history_(history) {}

    /// Which entry is shown; nothing while it is what the user typed.
    [[nodiscard]] std::optional<int> cursor() const { return cursor_; }

    /// The query before the one that is shown; `typed` is what stands when the walk begins. Nothing
    /// when there is none.
    [[nodiscard]] std::optional<std::string> older(std::string_view typed);

    /// The query after the one that is shown, and at last the typed text. Nothing outside a walk.
    [[nodiscard]] std::optional<std::string> newer();

    /// Something else is typed: the walk is over.
    void end() { cursor_.reset(); }

private:
    const QueryHistory& history_;
    std::optional<int> cursor_;
    std::string draft_;
};

} // namespace pello
