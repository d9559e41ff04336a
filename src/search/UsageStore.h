#pragma once

#include "base/Date.h"
#include "base/Signal.h"
#include "base/Subscription.h"
#include "platform/MainLoop.h"
#include "platform/UserDefaults.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

namespace pello {

class LearnedItems;

/// Learns from what the user runs, and lifts those items in later searches.
///
/// Keeps how often and how recently each item ran, and which item ran last for each query. Every
/// change is written through to the defaults at once, and what another process wrote there is
/// taken over. Main thread only.
class UsageStore {
public:
    /// How often and when an item ran.
    struct Record {
        std::int64_t count = 0;
        Date lastUsed;
        friend bool operator==(const Record&, const Record&) = default;
    };
    using Records = std::map<std::string, Record, std::less<>>;

    /// What lifts an item. Every part is finite and never negative.
    struct Boost {
        double recency = 0;   ///< 28 at the moment of use, halving every 14 days
        double frequency = 0; ///< log2 of the runs plus one
        double binding = 0;   ///< `kBinding` for the item that ran last for the very query
        static constexpr double kBinding = 400;
        [[nodiscard]] double sum() const { return recency * frequency + binding; }
    };

    /// Loads what was learned before. Data that cannot be decoded counts as absent.
    /// `defaults` and `loop` must outlive the store.
    UsageStore(UserDefaults& defaults, const MainLoop& loop);
    ~UsageStore();
    UsageStore(const UsageStore&) = delete;
    UsageStore& operator=(const UsageStore&) = delete;

    /// Counts one run of `itemID` and, unless `query` is blank, binds the query to it.
    void record(std::string_view itemID, std::string_view query);

    /// The learned bonus for `itemID` under `query` as typed. Never negative.
    [[nodiscard]] double boost(std::string_view itemID, std::string_view query) const;

    /// The same, in its parts.
    [[nodiscard]] Boost boostParts(std::string_view itemID, std::string_view query) const;

    /// What a record alone lifts, without any binding.
    [[nodiscard]] Boost boostParts(const Record& record) const;

    /// The item that ran last for `query` as typed, or null.
    [[nodiscard]] const std::string* boundItem(std::string_view query) const;

    /// Forgets items that are neither in `keeping` nor spared.
    void prune(const std::unordered_set<std::string>& keeping,
               const std::function<bool(std::string_view)>& sparing);

    /// Forgets one item, with the queries that lead to it. False when nothing was known of it.
    bool forget(std::string_view itemID);

    /// Forgets everything.
    void forgetAll();

    /// What is known of each item, by its id.
    [[nodiscard]] const Records& records() const { return records_; }

    /// Which item ran last for each text, as `boundItem` tells it.
    using Bindings = std::map<std::string, std::string, std::less<>>;
    [[nodiscard]] const Bindings& bindings() const { return bindings_; }

    /// Counts the changes of the learned data.
    [[nodiscard]] std::uint64_t revision() const { return revision_; }

    /// The time that ages are reckoned from.
    [[nodiscard]] Date now() const { return loop_.now(); }

    /// Where the known items stand in published lists, up to date until the data change.
    [[nodiscard]] LearnedItems& learnedItems() const;

    /// Emitted after every change of the learned data.
    Signal<> changed;

private:
    void load();
    void reload();
    void persist();
    void noteChange();

    UserDefaults& defaults_;
    const MainLoop& loop_;
    Records records_;
    Bindings bindings_; // normalised query to item id
    std::uint64_t revision_ = 1;
    std::unique_ptr<LearnedItems> learnedItems_; // a memo, filled by searches
    Subscription changedElsewhere_;
};

} // namespace pello
