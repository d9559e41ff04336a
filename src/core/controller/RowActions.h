#pragma once

#include "core/controller/ControllerParts.h"
#include "core/controller/RowRemark.h"
#include "core/items/SearchResult.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace pello {

/// Does what can be done with a row, and keeps what the row then says about it. Main thread
/// only.
class RowActions {
public:
    /// `parts` must outlive the actions.
    explicit RowActions(const ControllerParts& parts) : parts_(parts) {}

    /// Records that `query` led to `item` and starts its action in a later turn of the main loop.
    void start(const LaunchItemRef& item, std::string_view query) const;

    /// Whether `item` is a script that runs.
    [[nodiscard]] bool isRunning(const LaunchItem& item) const;

    /// Starts a script that runs another time, in a later turn of the main loop.
    void startAgain(const LaunchItemRef& item) const;

    /// Puts an answer on the pasteboard. Nothing for what is none.
    [[nodiscard]] std::optional<RowRemark> copy(const LaunchItem& item) const;

    /// Forgets what was learned about the item of that id.
    [[nodiscard]] RowRemark forget(const std::string& itemID) const;

    /// The row of `item` says so, until something is said about another.
    void remark(LaunchItemRef item, RowRemark what) { remark_ = {std::move(item), what}; }
    void endRemark() { remark_.reset(); }

    /// What `row` says about the last thing that was done with it; null says nothing.
    [[nodiscard]] std::optional<RowRemark> remark(const SearchResult* row) const;

private:
    const ControllerParts& parts_;
    std::optional<std::pair<LaunchItemRef, RowRemark>> remark_;
};

} // namespace pello
