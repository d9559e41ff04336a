#include "sources/ApplicationItem.h"

#include "base/Text.h"

namespace pello {

namespace {

std::vector<std::string_view> words(std::string_view name) {
    std::vector<std::string_view> found;
    for (const std::string_view part : text::split(name, ' ')) {
        const auto pieces = text::split(part, '-');
        found.insert(found.end(), pieces.begin(), pieces.end());
    }
    return found;
}

/// `folder` without a trailing separator, "/" excepted.
std::string plainPath(const std::filesystem::path& folder) {
    std::string path = folder.lexically_normal().string();
    while (path.size() > 1 && path.ends_with('/')) {
        path.pop_back();
    }
    return path;
}

} // namespace

LaunchItem applicationItem(const DiscoveredApplication& application,
                           const std::filesystem::path& home, Workspace& workspace) {
    auto keywords = applicationKeywords(application.name, application.bundleIdentifier);
    keywords.insert(keywords.end(), application.keywords.begin(), application.keywords.end());
    const std::filesystem::path& url = application.url;
    return {
        .id = "app:" + text::wellFormed(url.lexically_normal().string()),
        .title = application.name,
        .subtitle = displayPath(url, home),
        .kind = LaunchItem::Kind::application,
        .icon = LaunchItem::FileIcon{url},
        .keywords = std::move(keywords),
        .accessory = std::nullopt,
        .requiresConfirmation = false,
        .isEphemeral = false,
        .revealURL = url,
        .run = [&workspace, url] { workspace.openApplication(url); },
    };
}

std::vector<std::string> applicationKeywords(std::string_view name,
                                             const std::optional<std::string>& bundleIdentifier) {
    std::vector<std::string> keywords;
    if (bundleIdentifier) {
        const auto components = text::split(*bundleIdentifier, '.');
        keywords.assign(components.begin(), components.end());
    }
    const auto parts = words(name);
    if (parts.size() >= 2) {
        std::string initials;
        for (const std::string_view part : parts) {
            initials += text::characterViews(part).front();
        }
        keywords.push_back(std::move(initials));
    }
    return keywords;
}

std::string displayPath(const std::filesystem::path& file, const std::filesystem::path& home) {
    const std::string folder = plainPath(file.parent_path());
    const std::string prefix = plainPath(home);
    const bool isInHome = prefix.size() > 1 && folder.starts_with(prefix) &&
                          (folder.size() == prefix.size() || folder[prefix.size()] == '/');
    return text::wellFormed(isInHome ? "~" + folder.substr(prefix.size()) : folder);
}

} // namespace pello
