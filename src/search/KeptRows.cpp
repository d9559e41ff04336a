#include "search/KeptRows.h"

#include <algorithm>
#include <limits>

namespace pello {

KeptRows::KeptRows(const Catalogue& catalogue, std::size_t limit, SearchWork& work)
    : limit_(limit),
      precedes_(catalogue, work),
      threshold_(-std::numeric_limits<double>::infinity()) {
    rows_.reserve(limit + 1);
}

bool KeptRows::offer(const ScoredRow& row) {
    if (row.score < threshold_ || (rows_.size() == limit_ && !precedes_(row, rows_.back()))) {
        return false;
    }
    const auto known = std::find_if(rows_.begin(), rows_.end(), [&](const ScoredRow& other) {
        return other.item == row.item && other.list == row.list;
    });
    if (known != rows_.end()) {
        if (known->score >= row.score) {
            return true;
        }
        rows_.erase(known);
    }
    rows_.insert(std::upper_bound(rows_.begin(), rows_.end(), row, precedes_), row);
    if (rows_.size() > limit_) {
        rows_.pop_back();
    }
    if (rows_.size() == limit_) {
        threshold_ = rows_.back().score;
    }
    return true;
}

} // namespace pello
