#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The JSON form of a list of records: an array with one object of text members per record.
/// For the sources of the records only.
namespace pello::recordList {

/// One member of a record, under its key.
inline std::optional<std::string> textMember(const nlohmann::json& object, const char* key) {
    const auto member = object.find(key);
    if (member == object.end() || !member->is_string()) {
        return std::nullopt;
    }
    return member->get<std::string>();
}

/// The records of `text`; nothing when it is not such an array or `decodeOne` refuses an element.
template <class Record>
std::optional<std::vector<Record>>
decode(std::string_view text, std::optional<Record> (*decodeOne)(const nlohmann::json&)) {
    const auto list = nlohmann::json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!list.is_array()) {
        return std::nullopt;
    }
    std::vector<Record> records;
    for (const nlohmann::json& element : list) {
        auto record = element.is_object() ? decodeOne(element) : std::nullopt;
        if (!record) {
            return std::nullopt;
        }
        records.push_back(std::move(*record));
    }
    return records;
}

/// `records` as JSON text. Malformed UTF-8 becomes U+FFFD.
template <class Record>
std::string encode(const std::vector<Record>& records,
                   nlohmann::ordered_json (*encodeOne)(const Record&)) {
    auto list = nlohmann::ordered_json::array();
    for (const Record& record : records) {
        list.push_back(encodeOne(record));
    }
    return list.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

} // namespace pello::recordList
