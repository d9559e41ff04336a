#include "core/settings/SettingForm.h"

#include "base/DecimalText.h"
#include "core/settings/NumberRange.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <system_error>

namespace pello {
namespace {

using Paths = std::vector<std::filesystem::path>;
using nlohmann::json;

json parseJSON(std::string_view text) {
    return json::parse(text, nullptr, /*allow_exceptions=*/false);
}

std::string dumped(const json& value) {
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

template <class Record>
std::optional<std::vector<Record>> parseRecords(std::string_view text) {
    json list = parseJSON(text);
    if (!list.is_array()) {
        return std::nullopt;
    }
    for (json& element : list) {
        if (element.is_object() && !element.contains("id")) {
            element["id"] = Uuid::random().text();
        }
    }
    return Record::decodeList(dumped(list));
}

} // namespace

std::optional<bool> SettingForm<bool>::parse(std::string_view text, std::string_view /*key*/) {
    if (text == "true" || text == "yes" || text == "on") {
        return true;
    }
    if (text == "false" || text == "no" || text == "off") {
        return false;
    }
    return std::nullopt;
}

std::string SettingForm<bool>::expected(std::string_view /*key*/) {
    return "true or false";
}

std::optional<std::int64_t> SettingForm<std::int64_t>::parse(std::string_view text,
                                                             std::string_view key) {
    std::int64_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc{} && stop == text.data() + text.size();
    if (!isWhole || !NumberRange::of(key).contains(number)) {
        return std::nullopt;
    }
    return number;
}

std::string SettingForm<std::int64_t>::expected(std::string_view key) {
    return "a whole number " + NumberRange::of(key).words();
}

std::string SettingForm<double>::text(double value) {
    return decimalText(value);
}

std::optional<double> SettingForm<double>::parse(std::string_view text, std::string_view key) {
    const auto number = parseDecimal(text);
    return number && NumberRange::of(key).contains(*number) ? number : std::nullopt;
}

std::string SettingForm<double>::expected(std::string_view key) {
    return "a number " + NumberRange::of(key).words();
}

std::optional<KeyCombo> SettingForm<KeyCombo>::parse(std::string_view text,
                                                     std::string_view /*key*/) {
    return KeyCombo::fromStorage(text);
}

std::string SettingForm<KeyCombo>::expected(std::string_view /*key*/) {
    return "a key code and modifier flags, such as 49:524288";
}

std::string SettingForm<std::optional<KeyCombo>>::text(const std::optional<KeyCombo>& value) {
    return value ? value->storageValue() : "none";
}

std::optional<std::optional<KeyCombo>>
SettingForm<std::optional<KeyCombo>>::parse(std::string_view text, std::string_view key) {
    if (text == "none") {
        return std::optional<KeyCombo>{};
    }
    const auto combo = SettingForm<KeyCombo>::parse(text, key);
    return combo ? std::optional<std::optional<KeyCombo>>(combo) : std::nullopt;
}

std::string SettingForm<std::optional<KeyCombo>>::expected(std::string_view key) {
    return SettingForm<KeyCombo>::expected(key) + ", or none";
}

std::optional<PanelPlacement> SettingForm<PanelPlacement>::parse(std::string_view text,
                                                                 std::string_view /*key*/) {
    const auto isFraction = [](double number) { return number >= 0 && number <= 1; };
    const auto placement = PanelPlacement::fromStorage(text);
    if (!placement || !isFraction(placement->centerX) || !isFraction(placement->top)) {
        return std::nullopt;
    }
    return placement;
}

std::string SettingForm<PanelPlacement>::expected(std::string_view /*key*/) {
    return "two fractions of the screen from 0 to 1, centre and top, such as 0.5:0.22";
}

std::string SettingForm<Paths>::text(const Paths& value) {
    auto list = json::array();
    for (const std::filesystem::path& path : value) {
        list.push_back(path.string());
    }
    return dumped(list);
}

std::optional<Paths> SettingForm<Paths>::parse(std::string_view text, std::string_view /*key*/) {
    const json list = parseJSON(text);
    if (!list.is_array()) {
        return std::nullopt;
    }
    Paths paths;
    for (const json& element : list) {
        if (!element.is_string()) {
            return std::nullopt;
        }
        paths.emplace_back(element.get<std::string>());
        if (!paths.back().is_absolute()) {
            return std::nullopt;
        }
    }
    return paths;
}

std::string SettingForm<Paths>::expected(std::string_view /*key*/) {
    return R"(a JSON list of absolute paths, such as ["/opt/applications"])";
}

std::optional<std::vector<Bang>> SettingForm<std::vector<Bang>>::parse(std::string_view text,
                                                                       std::string_view /*key*/) {
    return parseRecords<Bang>(text);
}

std::string SettingForm<std::vector<Bang>>::expected(std::string_view /*key*/) {
    return R"(a JSON list of objects with "keyword", "name" and "template")";
}

std::optional<std::vector<URLAlias>>
SettingForm<std::vector<URLAlias>>::parse(std::string_view text, std::string_view /*key*/) {
    return parseRecords<URLAlias>(text);
}

std::string SettingForm<std::vector<URLAlias>>::expected(std::string_view /*key*/) {
    return R"(a JSON list of objects with "alias" and "url")";
}

} // namespace pello
