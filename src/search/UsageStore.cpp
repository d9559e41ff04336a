#include "search/UsageStore.h"

#include "base/Text.h"
#include "search/LearnedItems.h"
#include "search/UsageCoding.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pello {
namespace {

constexpr std::string_view kRecordsKey = "usage.records";
constexpr std::string_view kBindingsKey = "usage.bindings";

constexpr double kSecondsPerDay = 86400;
constexpr double kFullRecency = 28;
constexpr double kHalfLife = 14; // days

std::string normalized(std::string_view query) {
    return text::lowercased(text::trimmingBlanks(query));
}

double recency(Date lastUsed, Date now) {
    const double age = (now - lastUsed).count() / kSecondsPerDay;
    return kFullRecency * std::exp2(-age / kHalfLife);
}

/// Counted as a real number: the count may be as large as an integer gets.
double frequency(std::int64_t count) {
    return std::log2(static_cast<double>(count) + 1);
}

} // namespace

UsageStore::UsageStore(UserDefaults& defaults, const MainLoop& loop)
    : defaults_(defaults), loop_(loop), learnedItems_(std::make_unique<LearnedItems>(*this)) {
    load();
    changedElsewhere_ = defaults_.changedElsewhere.connect([this](const auto& keys) {
        const auto isOurs = [](std::string_view key) {
            return key == kRecordsKey || key == kBindingsKey;
        };
        if (std::any_of(keys.begin(), keys.end(), isOurs)) {
            reload();
        }
    });
}

UsageStore::~UsageStore() = default;

void UsageStore::record(std::string_view itemID, std::string_view query) {
    Record& record = records_[std::string(itemID)];
    if (record.count < std::numeric_limits<std::int64_t>::max()) {
        ++record.count;
    }
    record.lastUsed = loop_.now();
    if (auto bound = normalized(query); !bound.empty()) {
        bindings_[std::move(bound)] = itemID;
    }
    persist();
    noteChange();
}

double UsageStore::boost(std::string_view itemID, std::string_view query) const {
    return boostParts(itemID, query).sum();
}

UsageStore::Boost UsageStore::boostParts(std::string_view itemID, std::string_view query) const {
    Boost boost;
    if (const auto found = records_.find(itemID); found != records_.end()) {
        boost = boostParts(found->second);
    }
    const std::string* bound = boundItem(query);
    if (bound != nullptr && *bound == itemID) {
        boost.binding = Boost::kBinding;
    }
    return boost;
}

UsageStore::Boost UsageStore::boostParts(const Record& record) const {
    Boost boost = {.recency = recency(record.lastUsed, loop_.now()),
                   .frequency = frequency(record.count),
                   .binding = 0};
    if (!std::isfinite(boost.sum())) { // a date that is no date
        boost.recency = 0;
    }
    return boost;
}

const std::string* UsageStore::boundItem(std::string_view query) const {
    if (query.empty()) {
        return nullptr;
    }
    const auto bound = bindings_.find(normalized(query));
    return bound == bindings_.end() ? nullptr : &bound->second;
}

LearnedItems& UsageStore::learnedItems() const {
    learnedItems_->update();
    return *learnedItems_;
}

void UsageStore::prune(const std::unordered_set<std::string>& keeping,
                       const std::function<bool(std::string_view)>& sparing) {
    std::unordered_set<std::string> gone;
    for (const auto& [id, record] : records_) {
        if (!keeping.contains(id) && !sparing(id)) {
            gone.insert(id);
        }
    }
    if (gone.empty()) {
        return;
    }
    std::erase_if(records_, [&](const auto& entry) { return gone.contains(entry.first); });
    std::erase_if(bindings_, [&](const auto& entry) { return gone.contains(entry.second); });
    persist();
    noteChange();
}

bool UsageStore::forget(std::string_view itemID) {
    const auto known = records_.find(itemID);
    const auto bound =
        std::erase_if(bindings_, [itemID](const auto& entry) { return entry.second == itemID; });
    if (known == records_.end() && bound == 0) {
        return false;
    }
    if (known != records_.end()) {
        records_.erase(known);
    }
    persist();
    noteChange();
    return true;
}

void UsageStore::forgetAll() {
    const bool knew = !records_.empty() || !bindings_.empty();
    records_.clear();
    bindings_.clear();
    persist();
    if (knew) {
        noteChange();
    }
}

void UsageStore::load() {
    ++revision_;
    records_.clear();
    bindings_.clear();
    if (const auto stored = defaults_.value(kRecordsKey)) {
        if (const auto* data = stored->as<PropertyData>()) {
            records_ = UsageCoding::decodeRecords(*data);
        }
    }
    if (const auto stored = defaults_.value(kBindingsKey)) {
        bindings_ = UsageCoding::decodeBindings(*stored);
    }
}

void UsageStore::reload() {
    const auto before = std::pair(records_, bindings_);
    load();
    if (before != std::pair(records_, bindings_)) {
        noteChange();
    }
}

void UsageStore::persist() {
    defaults_.set(kRecordsKey, UsageCoding::encodeRecords(records_));
    defaults_.set(kBindingsKey, UsageCoding::encodeBindings(bindings_));
}

void UsageStore::noteChange() {
    ++revision_;
    changed.emit();
}

} // namespace pello
