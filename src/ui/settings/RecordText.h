#pragma once

#include "core/settings/SettingForm.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Lists of records as text, for files that users exchange.
namespace pello::recordText {

/// The list as readable JSON, one that `parse` takes back whole.
template <class Record>
[[nodiscard]] std::string exported(const std::vector<Record>& records) {
    const auto list =
        nlohmann::ordered_json::parse(Record::encodeList(records), nullptr, /*exceptions=*/false);
    return list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

/// The list in `json`; a record without an "id" gets a fresh one. Nothing when it is no such list.
template <class Record>
[[nodiscard]] std::optional<std::vector<Record>> parse(std::string_view json) {
    return SettingForm<std::vector<Record>>::parse(json, {});
}

/// `records` with `added`: one that has the id of another takes its place, one that says the same
/// as another is left out, and the rest follow. Nothing of `records` is lost but what was replaced.
template <class Record>
[[nodiscard]] std::vector<Record> merged(std::vector<Record> records,
                                         const std::vector<Record>& added) {
    for (const Record& record : added) {
        const auto sameId = std::ranges::find(records, record.id, &Record::id);
        const bool isThere = std::ranges::any_of(records, [record](Record other) {
            other.id = record.id;
            return other == record;
        });
        if (sameId != records.end()) {
            *sameId = record;
        } else if (!isThere) {
            records.push_back(record);
        }
    }
    return records;
}

} // namespace pello::recordText
