#pragma once

#include "core/items/SearchResult.h"

#include <span>
#include <vector>

namespace pello {

/// The rows of the panel, and which of them is selected. Main thread only.
class ResultRows {
public:
    /// Best first. Valid until they are replaced.
    [[nodiscard]] std::span<const SearchResult> all() const { return rows_; }

    /// The number of the selected row; 0 when there are none.
    [[nodiscard]] int selection() const { return selection_; }

    /// The selected row, valid until the rows are replaced; null when there are none.
    [[nodiscard]] const SearchResult* selected() const;

    /// Selects `row`, or the nearest that exists. False when it was selected before.
    bool select(int row);

    /// Shows other rows; the selection may stand behind their end until one is selected. False
    /// when they are the same.
    bool replace(std::vector<SearchResult> rows);

private:
    std::vector<SearchResult> rows_;
    int selection_ = 0;
};

} // namespace pello
