#include "sources/ApplicationScan.h"

#include "base/Collation.h"
#include "base/Text.h"

#include <algorithm>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace pello {

namespace {

namespace fs = std::filesystem;

constexpr int kMaximumDepth = 3;

/// The children of `folder` in the order of their names, so that of two candidates with one
/// identity always the same one counts. Empty when it cannot be listed.
std::vector<fs::directory_entry> children(const fs::path& folder) {
    std::vector<fs::directory_entry> entries;
    std::error_code error;
    fs::directory_iterator next(folder, error);
    for (; !error && next != fs::directory_iterator(); next.increment(error)) {
        entries.push_back(*next);
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

/// Of a text longer than any reader takes in, and than a table of scores should hold, the
/// beginning.
std::string_view beginning(std::string_view text) {
    constexpr std::size_t kMostCharacters = 500;
    return text.substr(0, text.size() - text::droppingFirst(text, kMostCharacters).size());
}

/// The extension without its dot; "a." has none.
std::string extension(const fs::path& path) {
    const std::string dotted = path.extension().string();
    return dotted.empty() ? dotted : dotted.substr(1);
}

class Scan {
public:
    explicit Scan(const BundleReader& reader) : reader_(reader) {}

    void walk(const fs::path& root, const fs::path& folder, int depth) {
        if (depth > kMaximumDepth) {
            return;
        }
        for (const fs::directory_entry& child : children(folder)) {
            visit(root, child, depth);
        }
    }

    void consider(const fs::path& root, const fs::path& candidate) {
        const bool isNew = paths_.insert(candidate.native()).second &&
                           identities_.insert(reader_.identity(root, candidate)).second;
        if (!isNew) {
            return;
        }
        auto description = reader_.describe(candidate);
        if (!description) {
            return;
        }
        const std::string shown =
            text::wellFormed(description->name ? *description->name : candidate.stem().string());
        const std::string_view name = beginning(text::trimmingWhitespaceAndControls(shown));
        if (!text::containsLetterOrNumber(name)) {
            return;
        }
        for (std::string& keyword : description->keywords) {
            keyword.resize(beginning(keyword).size());
        }
        found_.push_back({.url = candidate,
                          .name = std::string(name),
                          .bundleIdentifier = std::move(description->bundleIdentifier),
                          .keywords = std::move(description->keywords)});
    }

    std::vector<DiscoveredApplication> takeFound() { return std::move(found_); }

private:
    void visit(const fs::path& root, const fs::directory_entry& child, int depth) {
        const fs::path& path = child.path();
        if (path.filename().native().starts_with('.')) {
            return;
        }
        const std::string suffix = extension(path);
        if (suffix == reader_.candidateExtension()) {
            consider(root, path);
            return;
        }
        std::error_code error;
        if (suffix.empty() && child.symlink_status(error).type() == fs::file_type::directory) {
            walk(root, path, depth + 1);
        }
    }

    const BundleReader& reader_;
    // Both, because one file may lie below several of the folders.
    std::unordered_set<std::string> paths_;
    std::unordered_set<std::string> identities_;
    std::vector<DiscoveredApplication> found_;
};

std::vector<DiscoveredApplication> sortedByName(std::vector<DiscoveredApplication> applications) {
    std::vector<std::pair<std::string, DiscoveredApplication>> keyed;
    keyed.reserve(applications.size());
    for (DiscoveredApplication& application : applications) {
        std::string key = userCollation().sortKey(application.name);
        keyed.emplace_back(std::move(key), std::move(application));
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    for (std::size_t i = 0; i < keyed.size(); ++i) {
        applications[i] = std::move(keyed[i].second);
    }
    return applications;
}

} // namespace

std::vector<DiscoveredApplication>
scanApplications(const std::vector<std::filesystem::path>& directories,
                 const BundleReader& reader) {
    Scan scan(reader);
    for (const fs::path& directory : directories) {
        const fs::path root = directory.lexically_normal(); // one spelling of each application
        scan.walk(root, root, 1);
    }
    for (const fs::path& application : reader.alwaysListed()) {
        scan.consider(application.parent_path(), application);
    }
    return sortedByName(scan.takeFound());
}

} // namespace pello
