#include "platform/bundles/InfoPlistBundleReader.h"

#include "platform/bundles/PropertyList.h"
#include "platform/bundles/SmallFile.h"

#include <system_error>

namespace pello {

std::optional<PropertyDictionary>
InfoPlistBundleReader::infoDictionary(const std::filesystem::path& bundle) const {
    std::error_code error;
    if (!std::filesystem::is_directory(bundle, error)) {
        return std::nullopt;
    }
    const auto bytes = readSmallFile(bundle / "Contents" / "Info.plist");
    const auto list = bytes ? parsePropertyList(*bytes) : std::nullopt;
    const auto* dictionary = list ? list->as<PropertyDictionary>() : nullptr;
    return dictionary != nullptr ? *dictionary : PropertyDictionary();
}

} // namespace pello
