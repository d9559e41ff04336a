#pragma once

#include "platform/BundleReader.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pello {

/// One installed application that a scan accepted.
struct DiscoveredApplication {
    std::filesystem::path url;
    /// The name to show, trimmed; holds a letter or a digit.
    std::string name;
    std::optional<std::string> bundleIdentifier;
    /// Further words from the application itself.
    std::vector<std::string> keywords;

    friend bool operator==(const DiscoveredApplication&, const DiscoveredApplication&) = default;
};

/// The applications in `directories` and those that `reader` always lists, sorted by name as the
/// user's locale orders, ignoring case.
///
/// An application is found at most three levels below a directory. Folders with an extension are
/// never entered and links to folders never followed; names that begin with a dot are skipped. Of
/// several candidates with one identity the first counts, even when it is not to be listed: so an
/// entry of the user's can hide one of the system's. What cannot be read is skipped. Any thread.
[[nodiscard]] std::vector<DiscoveredApplication>
scanApplications(const std::vector<std::filesystem::path>& directories, const BundleReader& reader);

} // namespace pello
