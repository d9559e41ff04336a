#pragma once

#include "platform/BundleReader.h"
#include "platform/linux/DesktopEntry.h"
#include "platform/linux/Environment.h"
#include "platform/linux/XdgFolders.h"

namespace pello {

/// Applications as desktop entries, by the freedesktop rules for menus.
///
/// An entry is known by its path below the "applications" folder it was found in, so that a user's
/// entry replaces, or hides, the system's of the same name.
class DesktopBundleReader final : public BundleReader {
public:
    /// `environment` tells the folders, the languages, the desktop's name and `$PATH`.
    explicit DesktopBundleReader(Environment environment);

    [[nodiscard]] std::string_view candidateExtension() const override { return "desktop"; }
    /// The user's folder, the system's in their order, then where Flatpak and Snap export entries,
    /// for sessions that were started without these.
    [[nodiscard]] std::vector<std::filesystem::path> standardFolders() const override;
    [[nodiscard]] std::vector<std::filesystem::path> alwaysListed() const override { return {}; }
    [[nodiscard]] std::string identity(const std::filesystem::path& root,
                                       const std::filesystem::path& candidate) const override;
    [[nodiscard]] std::optional<BundleDescription>
    describe(const std::filesystem::path& candidate) const override;

private:
    [[nodiscard]] bool isListed(const DesktopEntry& entry) const;
    [[nodiscard]] bool isForThisDesktop(const DesktopEntry& entry) const;
    [[nodiscard]] bool canStart(const DesktopEntry& entry) const;
    [[nodiscard]] std::vector<std::string> keywords(const DesktopEntry& entry) const;

    Environment environment_;
    XdgFolders folders_;
    std::vector<std::string> locales_;
};

/// The desktop entry's name without its extension where that is a reverse-domain identifier
/// (org.example.Editor), as entries of programs on the session bus have.
[[nodiscard]] std::optional<std::string> reverseDomainName(const std::filesystem::path& entry);

} // namespace pello
