#include "search/UsageCoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace pello::UsageCoding {
namespace {

using Json = nlohmann::json;

/// An integer, however it is written; out of range it is the nearest that fits.
std::optional<std::int64_t> integer(const Json& value) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    if (value.is_number_unsigned()) {
        return static_cast<std::int64_t>(
            std::min(value.get<std::uint64_t>(), static_cast<std::uint64_t>(kMost)));
    }
    if (value.is_number_integer()) {
        return value.get<std::int64_t>();
    }
    if (!value.is_number_float()) {
        return std::nullopt;
    }
    const auto real = value.get<double>();
    if (std::trunc(real) != real) {
        return std::nullopt;
    }
    constexpr double kBeyond = 9223372036854775808.0; // 2^63, the first that does not fit
    if (real >= kBeyond || real < -kBeyond) {
        return real > 0 ? kMost : std::numeric_limits<std::int64_t>::min();
    }
    return static_cast<std::int64_t>(real);
}

std::optional<UsageStore::Record> record(const Json& value) {
    if (!value.is_object() || !value.contains("count") || !value.contains("lastUsed")) {
        return std::nullopt;
    }
    const auto count = integer(value["count"]);
    const Json& lastUsed = value["lastUsed"];
    if (!count || !lastUsed.is_number()) {
        return std::nullopt;
    }
    return UsageStore::Record{.count = std::max<std::int64_t>(*count, 1),
                              .lastUsed = {lastUsed.get<double>()}};
}

} // namespace

UsageStore::Records decodeRecords(const PropertyData& json) {
    const Json root = Json::parse(json.begin(), json.end(), nullptr, false);
    if (!root.is_object()) {
        return {};
    }
    UsageStore::Records records;
    for (const auto& [id, value] : root.items()) {
        const auto decoded = record(value);
        if (!decoded) {
            return {};
        }
        records.emplace(id, *decoded);
    }
    return records;
}

PropertyValue encodeRecords(const UsageStore::Records& records) {
    Json root = Json::object();
    for (const auto& [id, record] : records) {
        root[id] = {{"count", record.count}, {"lastUsed", record.lastUsed.sinceReference}};
    }
    const std::string json = root.dump(-1, ' ', false, Json::error_handler_t::replace);
    return PropertyData(json.begin(), json.end());
}

std::map<std::string, std::string, std::less<>> decodeBindings(const PropertyValue& value) {
    std::map<std::string, std::string, std::less<>> bindings;
    const auto* dictionary = value.as<PropertyDictionary>();
    if (dictionary == nullptr) {
        return {};
    }
    for (const auto& [query, item] : *dictionary) {
        const auto* id = item.as<std::string>();
        if (id == nullptr) {
            return {};
        }
        bindings.emplace(query, *id);
    }
    return bindings;
}

PropertyValue encodeBindings(const std::map<std::string, std::string, std::less<>>& bindings) {
    return PropertyDictionary(bindings.begin(), bindings.end());
}

} // namespace pello::UsageCoding
