#pragma once

#include "core/items/LaunchItem.h"
#include "platform/Workspace.h"
#include "sources/ApplicationScan.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The item that shows and opens `application`. `home` is the user's home folder. The item's action
/// uses `workspace`, which must outlive it; making the item does not, so any thread may.
[[nodiscard]] LaunchItem applicationItem(const DiscoveredApplication& application,
                                         const std::filesystem::path& home, Workspace& workspace);

/// The components of the identifier, then the initials of a name of several words, where words
/// stand between spaces and hyphens: ("Visual Studio Code", "com.example.Editor") gives com,
/// example, Editor, VSC.
[[nodiscard]] std::vector<std::string>
applicationKeywords(std::string_view name, const std::optional<std::string>& bundleIdentifier);

/// The folder that contains `file`, for display: `home` at its beginning reads "~".
[[nodiscard]] std::string displayPath(const std::filesystem::path& file,
                                      const std::filesystem::path& home);

} // namespace pello
