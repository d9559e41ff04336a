#include "ui/icons/IconTheme.h"

#include "base/Text.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <functional>

namespace pello {

namespace {

namespace fs = std::filesystem;
using Group = std::map<std::string, std::string, std::less<>>;
using Index = std::map<std::string, Group, std::less<>>;

constexpr std::array<std::string_view, 3> kExtensions = {".svg", ".png", ".xpm"};

/// The groups of an index.theme file.
Index readIndex(const fs::path& file) {
    Index index;
    Group* group = nullptr;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        const auto equals = line.find('=');
        if (line.starts_with('[') && line.ends_with(']')) {
            group = &index[line.substr(1, line.size() - 2)];
        } else if (group != nullptr && equals != std::string::npos && !line.starts_with('#')) {
            const std::string_view whole = line;
            const auto key = text::trimmingWhitespaceAndControls(whole.substr(0, equals));
            const auto value = text::trimmingWhitespaceAndControls(whole.substr(equals + 1));
            group->emplace(key, value);
        }
    }
    return index;
}

std::string value(const Group& group, std::string_view key, std::string_view otherwise = {}) {
    const auto found = group.find(key);
    return found == group.end() ? std::string(otherwise) : found->second;
}

int number(const Group& group, std::string_view key, int otherwise) {
    const auto found = group.find(key);
    const int parsed = found == group.end() ? 0 : std::atoi(found->second.c_str());
    return parsed > 0 && parsed <= 4096 ? parsed : otherwise;
}

IconTheme::Folder describe(const Group& group) {
    constexpr int kUsualSize = 48;
    const int scale = number(group, "Scale", 1);
    const int size = number(group, "Size", kUsualSize);
    const std::string type = value(group, "Type", "Threshold");
    const int pixels = size * scale;
    IconTheme::Folder folder{.path = {}, .size = pixels, .smallest = pixels, .largest = pixels};
    if (type == "Scalable") {
        folder.smallest = number(group, "MinSize", size) * scale;
        folder.largest = number(group, "MaxSize", size) * scale;
    } else if (type == "Threshold") {
        const int threshold = number(group, "Threshold", 2);
        folder.smallest = (size - threshold) * scale;
        folder.largest = (size + threshold) * scale;
    }
    return folder;
}

/// How badly a folder's images suit `pixels`: any that must be enlarged is worse than all that are
/// reduced.
int misfit(const IconTheme::Folder& folder, int pixels) {
    constexpr int kEnlarged = 100000;
    if (pixels < folder.smallest) {
        return folder.smallest - pixels;
    }
    return pixels > folder.largest ? kEnlarged + pixels - folder.largest : 0;
}

std::uint32_t hashOf(std::string_view name) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
}

/// The hashes of the names of the files in `folder`, without their extensions.
std::vector<std::uint32_t> namesIn(const fs::path& folder) {
    std::vector<std::uint32_t> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        names.push_back(hashOf(entry->path().stem().native()));
    }
    std::ranges::sort(names);
    return names;
}

std::optional<fs::path> imageAt(const fs::path& withoutExtension) {
    for (const auto extension : kExtensions) {
        fs::path file = withoutExtension;
        file += extension;
        std::error_code error;
        if (fs::is_regular_file(file, error)) {
            return file;
        }
    }
    return std::nullopt;
}

} // namespace

IconTheme::IconTheme(std::span<const std::string> names, std::vector<fs::path> roots)
    : roots_(std::move(roots)) {
    for (const auto& name : names) {
        add(name);
    }
    add("hicolor");
}

std::vector<fs::path> IconTheme::standardRoots() {
    std::vector<fs::path> roots{QDir::homePath().toStdString() + "/.icons"};
    for (const auto& folder :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        roots.emplace_back(folder.toStdString() + "/icons");
    }
    roots.emplace_back("/usr/share/pixmaps");
    return roots;
}

void IconTheme::add(const std::string& name) {
    const auto isNamed = [&](const Theme& theme) { return theme.name == name; };
    if (name.empty() || std::ranges::any_of(themes_, isNamed)) {
        return;
    }
    themes_.push_back({.name = name, .folders = {}});
    for (const auto& root : roots_) {
        const Index index = readIndex(root / name / "index.theme");
        const auto header = index.find("Icon Theme");
        if (header == index.end()) {
            continue;
        }
        const std::string listed = value(header->second, "Directories");
        for (const auto path : text::split(listed, ',')) {
            if (const auto group = index.find(path); group != index.end()) {
                addFolders(themes_.back(), std::string(path), describe(group->second));
            }
        }
        const std::string parents = value(header->second, "Inherits");
        for (const auto parent : text::split(parents, ',')) {
            if (parent != "hicolor") { // comes last of all
                add(std::string(parent));
            }
        }
        return;
    }
}

std::optional<fs::path> IconTheme::find(std::string_view name, int pixels) const {
    const std::string wanted(name);
    if (wanted.empty() || wanted.find('/') != std::string::npos) {
        return std::nullopt;
    }
    for (const auto& theme : themes_) {
        if (auto found = findIn(theme, wanted, pixels)) {
            return found;
        }
    }
    for (const auto& root : roots_) {
        if (auto found = imageAt(root / wanted)) {
            return found;
        }
    }
    return std::nullopt;
}

/// Adds the folder `path` of each root that has images there.
void IconTheme::addFolders(Theme& theme, const std::string& path, const Folder& sizes) const {
    for (const auto& root : roots_) {
        Folder folder = sizes;
        folder.path = root / theme.name / path;
        folder.names = namesIn(folder.path);
        if (!folder.names.empty()) {
            theme.folders.push_back(std::move(folder));
        }
    }
}

std::optional<fs::path> IconTheme::findIn(const Theme& theme, const std::string& name, int pixels) {
    std::vector<const Folder*> folders;
    folders.reserve(theme.folders.size());
    for (const auto& folder : theme.folders) {
        folders.push_back(&folder);
    }
    std::ranges::stable_sort(folders, {},
                             [&](const Folder* each) { return misfit(*each, pixels); });
    const std::uint32_t hash = hashOf(name);
    for (const Folder* folder : folders) {
        const bool mayHaveIt = std::ranges::binary_search(folder->names, hash);
        if (auto found = mayHaveIt ? imageAt(folder->path / name) : std::nullopt) {
            return found;
        }
    }
    return std::nullopt;
}

} // namespace pello
