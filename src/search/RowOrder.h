#pragma once

#include "search/PreparedList.h"
#include "search/SearchWork.h"

#include <cstdint>

namespace pello {

/// A row of a search in the making.
struct ScoredRow {
    double score;
    std::uint32_t list; // in the catalogue
    std::uint32_t item; // in the list
    bool isByTitle;     // the title decided, and is highlighted
};

/// The order of the results: score, kind, title, catalogue. Borrows everything.
class RowOrder {
public:
    RowOrder(const Catalogue& catalogue, SearchWork& work) : catalogue_(&catalogue), work_(&work) {}

    /// Whether `left` stands before `right`.
    [[nodiscard]] bool operator()(const ScoredRow& left, const ScoredRow& right) const;

private:
    [[nodiscard]] const LaunchItem& item(const ScoredRow& row) const;

    const Catalogue* catalogue_;
    SearchWork* work_;
};

} // namespace pello
