#include "core/controller/HistoryRecall.h"

#include <algorithm>

namespace pello {

std::optional<std::string> HistoryRecall::older(std::string_view typed) {
    const auto& entries = history_.entries();
    const int next = cursor_ ? *cursor_ + 1 : 0;
    if (next >= static_cast<int>(entries.size())) {
        return std::nullopt;
    }
    if (!cursor_) {
        draft_ = typed;
    }
    cursor_ = next;
    return entries[static_cast<std::size_t>(next)];
}

std::optional<std::string> HistoryRecall::newer() {
    if (!cursor_) {
        return std::nullopt;
    }
    const auto& entries = history_.entries();
    // Another process may have shortened the history below the cursor.
    const int next = std::min(*cursor_, static_cast<int>(entries.size())) - 1;
    if (next < 0) {
        cursor_.reset();
        return draft_;
    }
    cursor_ = next;
    return entries[static_cast<std::size_t>(next)];
}

} // namespace pello
