#pragma once

#include "base/Signal.h"
#include "platform/MainLoop.h"
#include "platform/UserDefaults.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace pello {

/// Learns from what the user runs, and lifts those items in later searches.
///
/// Keeps how often and how recently each item ran, and which item ran last for each query. Every
/// change is written through to the defaults at once. Main thread only.
class UsageStore {
public:
    /// Loads what was learned before. Data that cannot be decoded counts as absent.
    /// `defaults` and `loop` must outlive the store.
    UsageStore(UserDefaults& defaults, const MainLoop& loop);

    /// Counts one run of `itemID` and, unless `query` is blank, binds the query to it.
    void record(std::string_view itemID, std::string_view query);

    /// The learned bonus for `itemID` under `query` as typed. Never negative.
    [[nodiscard]] double boost(std::string_view itemID, std::string_view query) const;

    /// Forgets items that are neither in `keeping` nor spared.
    void prune(const std::unordered_set<std::string>& keeping,
               const std::function<bool(std::string_view)>& sparing);

    /// Forgets everything.
    void forgetAll();

    /// Emitted after every change of the learned data.
    Signal<> changed;

private:
    UserDefaults& defaults_;
    const MainLoop& loop_;
};

} // namespace pello
