#include "base/PropertyValue.h"

namespace pello {

std::optional<double> realValue(const PropertyValue& value) {
    if (const auto* real = value.as<double>()) {
        return *real;
    }
    if (const auto* integer = value.as<std::int64_t>()) {
        return static_cast<double>(*integer);
    }
    return std::nullopt;
}

std::optional<std::vector<std::string>> stringArray(const PropertyValue& value) {
    const auto* array = value.as<PropertyArray>();
    if (array == nullptr) {
        return std::nullopt;
    }
    std::vector<std::string> strings;
    strings.reserve(array->size());
    for (const PropertyValue& element : *array) {
        const auto* text = element.as<std::string>();
        if (text == nullptr) {
            return std::nullopt;
        }
        strings.push_back(*text);
    }
    return strings;
}

PropertyValue propertyArray(const std::vector<std::string>& strings) {
    return PropertyArray(strings.begin(), strings.end());
}

} // namespace pello
