#pragma once

#include <cstddef>

namespace pello {

/// What one search had to do. Does not depend on the machine.
struct SearchWork {
    /// Texts looked at beyond their presence mask.
    std::size_t textsTried = 0;
    /// Alignments computed, those for the highlights included.
    std::size_t tablesFilled = 0;
    /// Titles compared because score and kind were equal.
    std::size_t titleComparisons = 0;
};

} // namespace pello
