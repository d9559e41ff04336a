#pragma once

#include "platform/bundles/AppBundleReader.h"

namespace pello {

/// Reads the information dictionary of a bundle from its Contents/Info.plist, XML or binary. One
/// that is missing or damaged counts as empty.
class InfoPlistBundleReader final : public AppBundleReader {
public:
    using AppBundleReader::AppBundleReader;

protected:
    [[nodiscard]] std::optional<PropertyDictionary>
    infoDictionary(const std::filesystem::path& bundle) const override;
};

} // namespace pello
