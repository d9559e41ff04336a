#include "core/controller/ResultRows.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace pello {

const SearchResult* ResultRows::selected() const {
    const auto row = static_cast<std::size_t>(selection_);
    return row < rows_.size() ? &rows_[row] : nullptr;
}

bool ResultRows::select(int row) {
    const int last = static_cast<int>(rows_.size()) - 1;
    const int nearest = std::max(0, std::min(row, last));
    return std::exchange(selection_, nearest) != nearest;
}

bool ResultRows::replace(std::vector<SearchResult> rows) {
    if (rows == rows_) {
        return false;
    }
    rows_ = std::move(rows);
    return true;
}

} // namespace pello
