#include "platform/bundles/AppBundleReader.h"

#include "platform/bundles/InfoDictionary.h"

#include <utility>

namespace pello {

AppBundleReader::AppBundleReader(std::filesystem::path home) : home_(std::move(home)) {}

std::vector<std::filesystem::path> AppBundleReader::standardFolders() const {
    return {"/Applications",
            "/Applications/Utilities",
            "/System/Applications",
            "/System/Applications/Utilities",
            "/System/Library/CoreServices/Applications",
            home_ / "Applications"};
}

std::vector<std::filesystem::path> AppBundleReader::alwaysListed() const {
    return {"/System/Library/CoreServices/Finder.app"};
}

std::string AppBundleReader::identity(const std::filesystem::path& /*root*/,
                                      const std::filesystem::path& candidate) const {
    return candidate.string();
}

std::optional<BundleDescription>
AppBundleReader::describe(const std::filesystem::path& candidate) const {
    const auto info = infoDictionary(candidate);
    return info ? describeBundle(candidate, *info) : std::nullopt;
}

} // namespace pello
