#include "scripts/ScriptScan.h"

#include "base/Collation.h"
#include "scripts/ScriptHeader.h"
#include "scripts/ScriptHeaderDoubts.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

namespace pello {
namespace {

namespace fs = std::filesystem;

/// The visible files of `folder`, by name.
std::vector<fs::path> visibleFiles(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    fs::create_directories(folder, error);
    fs::directory_iterator next(folder, error);
    for (; !error && next != fs::directory_iterator(); next.increment(error)) {
        const bool isHidden = next->path().filename().native().starts_with('.');
        std::error_code unreadable;
        if (!isHidden && (next->is_regular_file(unreadable) || next->is_symlink(unreadable))) {
            files.push_back(next->path());
        }
    }
    std::ranges::sort(files);
    return files;
}

std::optional<std::string> firstBytes(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        return std::nullopt;
    }
    std::string bytes(kScriptHeaderBytes, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

/// Goes through the files of a folder one by one.
class Scan {
public:
    Scan(const FileAccess& access, std::string_view locale) : access_(access), locale_(locale) {}

    void consider(const fs::path& file) {
        std::error_code error;
        if (fs::is_symlink(file, error) && !follow(file)) {
            return;
        }
        if (!access_.canExecute(file)) {
            complain(file, "it is not executable");
            return;
        }
        const auto bytes = firstBytes(file);
        if (!bytes) {
            complain(file, "it cannot be read");
            return;
        }
        const auto header = scriptHeader(*bytes);
        if (header.empty() && !bytes->empty()) {
            complain(file, "its header is not UTF-8 text, and is ignored");
        }
        for (std::string& doubt : scriptHeaderDoubts(ScriptHeaderValues::of(header))) {
            complain(file, std::move(doubt));
        }
        found.commands.push_back(ScriptCommand::parse(header, file, locale_));
    }

    ScriptScan found;

private:
    /// Whether a link leads to a file; folders are none, as elsewhere.
    bool follow(const fs::path& link) {
        std::error_code error;
        const fs::path target = fs::canonical(link, error);
        if (error) {
            complain(link, "it leads nowhere");
            return false;
        }
        if (!fs::is_regular_file(target, error)) {
            return false;
        }
        found.linkedFolders.push_back(target.parent_path());
        return true;
    }

    void complain(const fs::path& file, std::string reason) {
        found.problems.push_back({.file = file, .reason = std::move(reason)});
    }

    const FileAccess& access_;
    std::string_view locale_;
};

} // namespace

ScriptScan ScriptScan::of(const fs::path& folder, const FileAccess& access,
                          std::string_view locale) {
    Scan scan(access, locale);
    for (const fs::path& file : visibleFiles(folder)) {
        scan.consider(file);
    }
    std::vector<fs::path>& folders = scan.found.linkedFolders;
    std::ranges::sort(folders);
    folders.erase(std::ranges::unique(folders).begin(), folders.end());
    const Collation collation(locale);
    std::ranges::stable_sort(scan.found.commands, [&](const auto& left, const auto& right) {
        return collation.compare(left.name, right.name) < 0;
    });
    return std::move(scan.found);
}

} // namespace pello
