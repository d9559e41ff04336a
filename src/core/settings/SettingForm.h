#pragma once

#include "answers/Bang.h"
#include "answers/URLAlias.h"
#include "base/RawValues.h"
#include "core/settings/PanelPlacement.h"
#include "keyboard/keys/KeyCombo.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// How a value of type `T` is typed and shown on the command line.
///
/// `text` shows a value; `parse` takes one for the setting `key`, or nothing when it is not fit for
/// it; `expected` says what would be, to follow "takes". The general form is an enumeration's.
template <class T>
struct SettingForm {
    static std::string text(T value) { return std::string(rawValue(value)); }
    static std::optional<T> parse(std::string_view text, std::string_view /*key*/) {
        return fromRawValue<T>(text);
    }
    static std::string expected(std::string_view /*key*/) {
        std::string names;
        for (const std::string_view name : RawValues<T>::names) {
            names += names.empty() ? "one of " : ", ";
            names += name;
        }
        return names;
    }
};

/// Shown as "true" or "false"; "yes", "no", "on" and "off" are understood too.
template <>
struct SettingForm<bool> {
    static std::string text(bool value) { return value ? "true" : "false"; }
    static std::optional<bool> parse(std::string_view text, std::string_view key);
    static std::string expected(std::string_view key);
};

/// Numbers are limited to what makes a usable program: 1 to 50 results, type of 8 to 72 points,
/// icons of 12 to 128 points.
template <>
struct SettingForm<std::int64_t> {
    static std::string text(std::int64_t value) { return std::to_string(value); }
    static std::optional<std::int64_t> parse(std::string_view text, std::string_view key);
    static std::string expected(std::string_view key);
};

template <>
struct SettingForm<double> {
    static std::string text(double value);
    static std::optional<double> parse(std::string_view text, std::string_view key);
    static std::string expected(std::string_view key);
};

template <>
struct SettingForm<KeyCombo> {
    static std::string text(const KeyCombo& value) { return value.storageValue(); }
    static std::optional<KeyCombo> parse(std::string_view text, std::string_view key);
    static std::string expected(std::string_view key);
};

/// No combo is "none".
template <>
struct SettingForm<std::optional<KeyCombo>> {
    static std::string text(const std::optional<KeyCombo>& value);
    static std::optional<std::optional<KeyCombo>> parse(std::string_view text,
                                                        std::string_view key);
    static std::string expected(std::string_view key);
};

/// Both fractions lie between 0 and 1: the panel stays on its screen.
template <>
struct SettingForm<PanelPlacement> {
    static std::string text(const PanelPlacement& value) { return value.storageValue(); }
    static std::optional<PanelPlacement> parse(std::string_view text, std::string_view key);
    static std::string expected(std::string_view key);
};

/// A JSON list of absolute paths.
template <>
struct SettingForm<std::vector<std::filesystem::path>> {
    static std::string text(const std::vector<std::filesystem::path>& value);
    static std::optional<std::vector<std::filesystem::path>> parse(std::string_view text,
                                                                   std::string_view key);
    static std::string expected(std::string_view key);
};

/// The stored JSON; a record typed without an "id" gets a fresh one.
template <>
struct SettingForm<std::vector<Bang>> {
    static std::string text(const std::vector<Bang>& value) { return Bang::encodeList(value); }
    static std::optional<std::vector<Bang>> parse(std::string_view text, std::string_view key);
    static std::string expected(std::string_view key);
};

template <>
struct SettingForm<std::vector<URLAlias>> {
    static std::string text(const std::vector<URLAlias>& value) {
        return URLAlias::encodeList(value);
    }
    static std::optional<std::vector<URLAlias>> parse(std::string_view text, std::string_view key);
    static std::string expected(std::string_view key);
};

} // namespace pello
