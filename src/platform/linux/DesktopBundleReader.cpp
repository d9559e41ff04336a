#include "platform/linux/DesktopBundleReader.h"

#include "base/Text.h"
#include "platform/linux/ExecLine.h"
#include "platform/linux/Executables.h"

#include <algorithm>
#include <utility>

namespace pello {

namespace {

namespace fs = std::filesystem;

bool contains(const std::vector<std::string>& list, const std::string& element) {
    return std::find(list.begin(), list.end(), element) != list.end();
}

bool isIdentifierPart(std::string_view part) {
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_' || c == '-';
    };
    return !part.empty() && (part.front() < '0' || part.front() > '9') &&
           std::all_of(part.begin(), part.end(), isAllowed);
}

} // namespace

DesktopBundleReader::DesktopBundleReader(Environment environment)
    : environment_(std::move(environment)),
      folders_(xdgFolders(environment_)),
      locales_(messageLocales(environment_)) {}

std::vector<fs::path> DesktopBundleReader::standardFolders() const {
    std::vector<fs::path> shares = {folders_.data};
    shares.insert(shares.end(), folders_.systemData.begin(), folders_.systemData.end());
    shares.push_back(folders_.data / "flatpak/exports/share");
    shares.emplace_back("/var/lib/flatpak/exports/share");
    shares.emplace_back("/var/lib/snapd/desktop");
    std::vector<fs::path> found;
    for (const fs::path& share : shares) {
        const fs::path folder = (share / "applications").lexically_normal();
        if (std::find(found.begin(), found.end(), folder) == found.end()) {
            found.push_back(folder);
        }
    }
    return found;
}

std::string DesktopBundleReader::identity(const fs::path& root, const fs::path& candidate) const {
    std::string id = candidate.lexically_relative(root).string();
    std::replace(id.begin(), id.end(), '/', '-');
    return id;
}

std::optional<BundleDescription> DesktopBundleReader::describe(const fs::path& candidate) const {
    const auto entry = readDesktopEntry(candidate);
    if (!entry || !isListed(*entry)) {
        return std::nullopt;
    }
    return BundleDescription{.name = entry->localizedString("Name", locales_),
                             .bundleIdentifier = reverseDomainName(candidate),
                             .keywords = keywords(*entry)};
}

bool DesktopBundleReader::isListed(const DesktopEntry& entry) const {
    return entry.string("Type") == "Application" && !entry.flag("Hidden") &&
           !entry.flag("NoDisplay") && isForThisDesktop(entry) && canStart(entry);
}

/// The first of the desktop's names that either list holds decides.
bool DesktopBundleReader::isForThisDesktop(const DesktopEntry& entry) const {
    const auto only = entry.list("OnlyShowIn");
    const auto except = entry.list("NotShowIn").value_or(std::vector<std::string>());
    for (const std::string& desktop : environment_.list("XDG_CURRENT_DESKTOP")) {
        if (only && contains(*only, desktop)) {
            return true;
        }
        if (contains(except, desktop)) {
            return false;
        }
    }
    return !only;
}

bool DesktopBundleReader::canStart(const DesktopEntry& entry) const {
    const auto probe = entry.string("TryExec");
    if (probe && !probe->empty() && !findExecutable(*probe, environment_)) {
        return false;
    }
    const auto exec = entry.string("Exec");
    return entry.flag("DBusActivatable") || (exec && execArguments(*exec, {}));
}

std::vector<std::string> DesktopBundleReader::keywords(const DesktopEntry& entry) const {
    std::vector<std::string> words;
    const auto add = [&](const std::string& word) {
        const std::string readable = text::wellFormed(word);
        std::string clean(text::trimmingWhitespaceAndControls(readable));
        if (!clean.empty() && !contains(words, clean)) {
            words.push_back(std::move(clean));
        }
    };
    if (const auto genericName = entry.localizedString("GenericName", locales_)) {
        add(*genericName);
    }
    for (const std::string& keyword :
         entry.localizedList("Keywords", locales_).value_or(std::vector<std::string>())) {
        add(keyword);
    }
    const auto name = entry.string("Name");
    if (name && name != entry.localizedString("Name", locales_)) {
        add(*name);
    }
    return words;
}

std::optional<std::string> reverseDomainName(const fs::path& entry) {
    const std::string name = entry.stem().string();
    constexpr std::size_t kFewestParts = 3; // two would take in version numbers and the like
    const auto parts = text::split(name, '.');
    const bool isReverseDomain =
        parts.size() >= kFewestParts && std::all_of(parts.begin(), parts.end(), isIdentifierPart) &&
        name.find("..") == std::string::npos && !name.starts_with('.') && !name.ends_with('.');
    return isReverseDomain ? std::optional(name) : std::nullopt;
}

} // namespace pello
