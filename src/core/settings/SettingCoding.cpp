#include "core/settings/SettingCoding.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

namespace pello {
namespace {

using Paths = std::vector<std::filesystem::path>;

template <class T>
std::optional<T> exactly(const PropertyValue& value) {
    const auto* held = value.as<T>();
    return held != nullptr ? std::optional(*held) : std::nullopt;
}

template <class T>
std::optional<T> fromStoredText(const PropertyValue& value) {
    const auto* text = value.as<std::string>();
    return text != nullptr ? T::fromStorage(*text) : std::nullopt;
}

template <class Record>
std::optional<std::vector<Record>> fromJSONData(const PropertyValue& value) {
    const auto* data = value.as<PropertyData>();
    if (data == nullptr) {
        return std::nullopt;
    }
    return Record::decodeList(std::string(data->begin(), data->end()));
}

template <class Record>
PropertyValue jsonData(const std::vector<Record>& records) {
    const std::string json = Record::encodeList(records);
    return PropertyData(json.begin(), json.end());
}

} // namespace

std::optional<bool> SettingCoding<bool>::read(const PropertyValue& value) {
    return exactly<bool>(value);
}

std::optional<std::int64_t> SettingCoding<std::int64_t>::read(const PropertyValue& value) {
    return exactly<std::int64_t>(value);
}

std::optional<double> SettingCoding<double>::read(const PropertyValue& value) {
    const auto number = realValue(value);
    if (!number || !std::isfinite(*number) || *number < kLeast || *number > kMost) {
        return std::nullopt;
    }
    return number;
}

std::optional<KeyCombo> SettingCoding<KeyCombo>::read(const PropertyValue& value) {
    return fromStoredText<KeyCombo>(value);
}

std::optional<std::optional<KeyCombo>>
SettingCoding<std::optional<KeyCombo>>::read(const PropertyValue& value) {
    const auto combo = fromStoredText<KeyCombo>(value);
    return combo ? std::optional<std::optional<KeyCombo>>(combo) : std::nullopt;
}

std::optional<PropertyValue>
SettingCoding<std::optional<KeyCombo>>::stored(const std::optional<KeyCombo>& value) {
    return value ? std::optional<PropertyValue>(value->storageValue()) : std::nullopt;
}

std::optional<PanelPlacement> SettingCoding<PanelPlacement>::read(const PropertyValue& value) {
    return fromStoredText<PanelPlacement>(value);
}

std::optional<Paths> SettingCoding<Paths>::read(const PropertyValue& value) {
    const auto texts = stringArray(value);
    return texts ? std::optional(Paths(texts->begin(), texts->end())) : std::nullopt;
}

std::optional<PropertyValue> SettingCoding<Paths>::stored(const Paths& value) {
    std::vector<std::string> texts;
    std::transform(value.begin(), value.end(), std::back_inserter(texts),
                   [](const std::filesystem::path& path) { return path.string(); });
    return propertyArray(texts);
}

std::optional<std::vector<Bang>>
SettingCoding<std::vector<Bang>>::read(const PropertyValue& value) {
    return fromJSONData<Bang>(value);
}

std::optional<PropertyValue>
SettingCoding<std::vector<Bang>>::stored(const std::vector<Bang>& value) {
    return jsonData(value);
}

std::optional<std::vector<URLAlias>>
SettingCoding<std::vector<URLAlias>>::read(const PropertyValue& value) {
    return fromJSONData<URLAlias>(value);
}

std::optional<PropertyValue>
SettingCoding<std::vector<URLAlias>>::stored(const std::vector<URLAlias>& value) {
    return jsonData(value);
}

} // namespace pello
