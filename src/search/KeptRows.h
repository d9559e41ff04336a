#pragma once

#include "search/RowOrder.h"

#include <cstddef>
#include <span>
#include <vector>

namespace pello {

/// The best rows of a search so far, in their final order, and what it takes to join them.
class KeptRows {
public:
    /// Keeps up to `limit` rows, at least one. Borrows the catalogue.
    KeptRows(const Catalogue& catalogue, std::size_t limit, SearchWork& work);

    /// Takes the row in if it is among the best. A second row of an item counts only if it scores
    /// more than the first. False when the row was refused for standing behind the last.
    bool offer(const ScoredRow& row);

    /// A row with less cannot join any more; one with as much can. Rises from minus infinity.
    [[nodiscard]] double threshold() const { return threshold_; }

    [[nodiscard]] std::span<const ScoredRow> rows() const { return rows_; }

private:
    std::size_t limit_;
    RowOrder precedes_;
    std::vector<ScoredRow> rows_;
    double threshold_;
};

} // namespace pello
