#pragma once

#include "platform/bundles/AppBundleReader.h"

namespace pello {

/// Reads the information dictionary of a bundle as the system does.
class CocoaBundleReader final : public AppBundleReader {
public:
    using AppBundleReader::AppBundleReader;

protected:
    [[nodiscard]] std::optional<PropertyDictionary>
    infoDictionary(const std::filesystem::path& bundle) const override;
};

} // namespace pello
