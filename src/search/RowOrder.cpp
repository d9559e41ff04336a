#include "search/RowOrder.h"

#include "search/TieOrder.h"

#include <tuple>

namespace pello {

bool RowOrder::operator()(const ScoredRow& left, const ScoredRow& right) const {
    if (left.score != right.score) {
        return left.score > right.score;
    }
    const LaunchItem& leftItem = item(left);
    const LaunchItem& rightItem = item(right);
    work_->titleComparisons += TieOrder::isDecidedByKind(leftItem, rightItem) ? 0U : 1U;
    const int order = TieOrder::compare(leftItem, rightItem);
    return order != 0 ? order < 0
                      : std::tie(left.list, left.item) < std::tie(right.list, right.item);
}

const LaunchItem& RowOrder::item(const ScoredRow& row) const {
    return (*catalogue_)[row.list]->items()[row.item];
}

} // namespace pello
