#pragma once

#include "base/Date.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace pello {

struct PropertyValue;

using PropertyData = std::vector<std::uint8_t>;
using PropertyArray = std::vector<PropertyValue>;
using PropertyDictionary = std::map<std::string, PropertyValue, std::less<>>;

/// One value of a property list: what the user defaults store and bundles describe themselves with.
/// A plain value; strings are UTF-8.
struct PropertyValue {
    using Storage = std::variant<std::string, std::int64_t, double, bool, PropertyData,
                                 PropertyArray, PropertyDictionary, Date>;
    Storage storage;

    PropertyValue() = default;
    PropertyValue(std::string text) : storage(std::move(text)) {}
    PropertyValue(std::string_view text) : storage(std::string(text)) {}
    PropertyValue(const char* text) : storage(std::string(text)) {}
    PropertyValue(std::int64_t number) : storage(number) {}
    PropertyValue(int number) : storage(std::int64_t{number}) {}
    PropertyValue(double number) : storage(number) {}
    PropertyValue(bool flag) : storage(flag) {}
    PropertyValue(PropertyData data) : storage(std::move(data)) {}
    PropertyValue(PropertyArray array) : storage(std::move(array)) {}
    PropertyValue(PropertyDictionary dictionary) : storage(std::move(dictionary)) {}
    PropertyValue(Date date) : storage(date) {}

    /// The value if it is of type `T`, else null. Lives as long as this value.
    template <class T>
    [[nodiscard]] const T* as() const {
        return std::get_if<T>(&storage);
    }

    friend bool operator==(const PropertyValue&, const PropertyValue&) = default;
};

/// A real number: a real, or an integer widened. Nothing for any other type.
[[nodiscard]] std::optional<double> realValue(const PropertyValue& value);

/// The strings of an array of nothing but strings; nothing for any other value.
[[nodiscard]] std::optional<std::vector<std::string>> stringArray(const PropertyValue& value);

/// An array of these strings.
[[nodiscard]] PropertyValue propertyArray(const std::vector<std::string>& strings);

} // namespace pello
