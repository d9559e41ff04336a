#include "platform/bundles/InfoDictionary.h"

#include <string_view>

namespace pello {

namespace {

const PropertyValue* find(const PropertyDictionary& info, std::string_view key) {
    const auto found = info.find(key);
    return found != info.end() ? &found->second : nullptr;
}

std::optional<std::string> stringUnder(const PropertyDictionary& info, std::string_view key) {
    const PropertyValue* value = find(info, key);
    const auto* text = value != nullptr ? value->as<std::string>() : nullptr;
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

/// Dictionaries written by hand hold flags in many forms; these, in this spelling, count as set.
bool isTruthy(const PropertyValue* value) {
    if (value == nullptr) {
        return false;
    }
    if (const auto* flag = value->as<bool>()) {
        return *flag;
    }
    if (const auto* text = value->as<std::string>()) {
        return *text == "1" || *text == "YES" || *text == "true";
    }
    return realValue(*value).value_or(0) != 0;
}

} // namespace

std::optional<BundleDescription> describeBundle(const std::filesystem::path& bundle,
                                                const PropertyDictionary& info) {
    const bool isOfSystem = bundle.native().starts_with("/System/");
    if (isTruthy(find(info, "LSBackgroundOnly")) ||
        (isOfSystem && isTruthy(find(info, "LSUIElement")))) {
        return std::nullopt;
    }
    auto name = stringUnder(info, "CFBundleDisplayName");
    if (!name) {
        name = stringUnder(info, "CFBundleName");
    }
    return BundleDescription{.name = std::move(name),
                             .bundleIdentifier = stringUnder(info, "CFBundleIdentifier"),
                             .keywords = {}};
}

} // namespace pello
