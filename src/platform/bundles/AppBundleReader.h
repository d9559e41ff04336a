#pragma once

#include "base/PropertyValue.h"
#include "platform/BundleReader.h"

namespace pello {

/// Applications as folders named "….app" that describe themselves in an information dictionary.
/// How the dictionary is had is left to the subclass.
class AppBundleReader : public BundleReader {
public:
    /// `home` is the user's home folder.
    explicit AppBundleReader(std::filesystem::path home);

    [[nodiscard]] std::string_view candidateExtension() const override { return "app"; }
    [[nodiscard]] std::vector<std::filesystem::path> standardFolders() const override;
    [[nodiscard]] std::vector<std::filesystem::path> alwaysListed() const override;
    /// Its path: two copies of an application are two.
    [[nodiscard]] std::string identity(const std::filesystem::path& root,
                                       const std::filesystem::path& candidate) const override;
    [[nodiscard]] std::optional<BundleDescription>
    describe(const std::filesystem::path& candidate) const override;

protected:
    /// The dictionary of `bundle`, empty when it has none; nothing when `bundle` is no bundle. Any
    /// thread, several at a time.
    [[nodiscard]] virtual std::optional<PropertyDictionary>
    infoDictionary(const std::filesystem::path& bundle) const = 0;

private:
    std::filesystem::path home_;
};

} // namespace pello
