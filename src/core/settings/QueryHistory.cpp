#include "core/settings/QueryHistory.h"

#include "base/Text.h"

#include <algorithm>

namespace pello {
namespace {

constexpr std::string_view kKey = "query.history";

} // namespace

QueryHistory::QueryHistory(UserDefaults& defaults)
    : defaults_(defaults),
      changedElsewhere_(
          defaults.changedElsewhere.connect([this](const std::vector<std::string>& keys) {
              if (std::find(keys.begin(), keys.end(), kKey) != keys.end()) {
                  load();
              }
          })) {
    load();
}

void QueryHistory::record(std::string_view query) {
    if (text::isBlank(query)) {
        return;
    }
    std::string entry(query);
    std::erase(entries_, entry);
    entries_.insert(entries_.begin(), std::move(entry));
    entries_.resize(std::min(entries_.size(), kMaximumEntries));
    defaults_.set(kKey, propertyArray(entries_));
}

void QueryHistory::clear() {
    entries_.clear();
    defaults_.set(kKey, propertyArray(entries_));
}

void QueryHistory::load() {
    entries_.clear();
    const auto stored = defaults_.value(kKey);
    if (!stored) {
        return;
    }
    for (std::string& entry : stringArray(*stored).value_or(std::vector<std::string>{})) {
        const bool isNew = std::find(entries_.begin(), entries_.end(), entry) == entries_.end();
        if (isNew && entries_.size() < kMaximumEntries) {
            entries_.push_back(std::move(entry));
        }
    }
}

} // namespace pello
