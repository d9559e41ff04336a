#pragma once

#include "platform/UserDefaults.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The queries with which the user ran something, most recent first. Main thread only.
class QueryHistory {
public:
    static constexpr std::size_t kMaximumEntries = 50;

    /// Loads the stored entries. `defaults` must outlive the history.
    explicit QueryHistory(UserDefaults& defaults);

    /// Puts `query`, as typed, first and writes the history back. A blank one is left out; one that
    /// was there already moves.
    void record(std::string_view query);

    /// Forgets every query.
    void clear();

    /// No two equal, at most `kMaximumEntries`.
    [[nodiscard]] const std::vector<std::string>& entries() const { return entries_; }

private:
    void load();

    UserDefaults& defaults_;
    std::vector<std::string> entries_;
    Subscription changedElsewhere_;
};

} // namespace pello
