#include "core/settings/SettingsArchive.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <vector>

namespace pello {
namespace {

using nlohmann::json;
using nlohmann::ordered_json;
using Entry = SettingsText::Entry;
using Problem = SettingsText::Problem;

// What was done to the keyboard of one machine is not for another.
constexpr std::string_view kLocalKey = "ownsHyperMapping";
// The only one that the system may refuse.
constexpr std::string_view kRefusableKey = "launchAtLogin";

/// The value as its own JSON where it has one: numbers, switches, lists; else as a string.
ordered_json valueOf(const Entry& entry) {
    auto value = ordered_json::parse(entry.value, nullptr, /*allow_exceptions=*/false);
    return value.is_discarded() ? ordered_json(entry.value) : value;
}

/// The settings that `object` holds, as text, in an order in which they can be set.
std::vector<Entry> entriesOf(const json& object) {
    std::vector<Entry> entries;
    for (const auto& [key, value] : object.items()) {
        entries.push_back(
            {.key = key,
             .value = value.is_string()
                          ? value.get<std::string>()
                          : value.dump(-1, ' ', false, json::error_handler_t::replace)});
    }
    std::stable_partition(entries.begin(), entries.end(),
                          [](const Entry& entry) { return entry.key == kRefusableKey; });
    return entries;
}

} // namespace

std::string SettingsArchive::exported() const {
    auto object = ordered_json::object();
    for (const Entry& entry : settings_.list()) {
        if (entry.key != kLocalKey) {
            object[entry.key] = valueOf(entry);
        }
    }
    return object.dump(2, ' ', false, json::error_handler_t::replace) + '\n';
}

std::optional<Problem> SettingsArchive::import(std::string_view text) {
    const json object = json::parse(text, nullptr, /*allow_exceptions=*/false);
    if (!object.is_object()) {
        return Problem{.kind = Problem::Kind::notUnderstood,
                       .sentence = "the settings to import are no JSON object"};
    }
    const std::vector<Entry> entries = entriesOf(object);
    for (const Entry& entry : entries) {
        if (auto problem = settings_.problemOf(entry.key, entry.value)) {
            return problem;
        }
    }
    for (const Entry& entry : entries) {
        if (entry.key == kLocalKey) {
            continue;
        }
        if (auto problem = settings_.set(entry.key, entry.value)) {
            return problem;
        }
    }
    return std::nullopt;
}

} // namespace pello
