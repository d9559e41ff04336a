#pragma once

#include "answers/Bang.h"
#include "answers/URLAlias.h"
#include "base/PropertyValue.h"
#include "base/RawValues.h"
#include "core/settings/PanelPlacement.h"
#include "keyboard/keys/KeyCombo.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pello {

/// How a setting's value of type `T` is kept in the user defaults.
///
/// `read` gives nothing for a value of another type or form; `stored` gives nothing when the key
/// is to hold no value. The general form is that of an enumeration: its raw value.
template <class T>
struct SettingCoding {
    static std::optional<T> read(const PropertyValue& value) {
        const auto* name = value.as<std::string>();
        return name != nullptr ? fromRawValue<T>(*name) : std::nullopt;
    }
    static std::optional<PropertyValue> stored(T value) { return PropertyValue(rawValue(value)); }
};

template <>
struct SettingCoding<bool> {
    static std::optional<bool> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(bool value) { return value; }
};

template <>
struct SettingCoding<std::int64_t> {
    static std::optional<std::int64_t> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(std::int64_t value) { return value; }
};

/// Every real setting is a size in points. A size that nothing could be drawn at (not finite, below
/// `kLeast` or above `kMost`) reads as no value.
template <>
struct SettingCoding<double> {
    static constexpr double kLeast = 1;
    static constexpr double kMost = 1000;
    static std::optional<double> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(double value) { return value; }
};

template <>
struct SettingCoding<KeyCombo> {
    static std::optional<KeyCombo> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(const KeyCombo& value) {
        return value.storageValue();
    }
};

template <>
struct SettingCoding<std::optional<KeyCombo>> {
    static std::optional<std::optional<KeyCombo>> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(const std::optional<KeyCombo>& value);
};

template <>
struct SettingCoding<PanelPlacement> {
    static std::optional<PanelPlacement> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(const PanelPlacement& value) {
        return value.storageValue();
    }
};

template <>
struct SettingCoding<std::vector<std::filesystem::path>> {
    static std::optional<std::vector<std::filesystem::path>> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(const std::vector<std::filesystem::path>& value);
};

template <>
struct SettingCoding<std::vector<Bang>> {
    static std::optional<std::vector<Bang>> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(const std::vector<Bang>& value);
};

template <>
struct SettingCoding<std::vector<URLAlias>> {
    static std::optional<std::vector<URLAlias>> read(const PropertyValue& value);
    static std::optional<PropertyValue> stored(const std::vector<URLAlias>& value);
};

} // namespace pello
