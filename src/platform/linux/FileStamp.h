#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace pello {

/// Tells one state of a file from another without reading it: atomic replacing makes a new inode,
/// rewriting in place moves the time or the size. A plain value.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t seconds = 0; // of the last modification
    std::int64_t nanoseconds = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

[[nodiscard]] inline FileStamp fileStamp(const struct stat& status) {
    return {.device = status.st_dev,
            .inode = status.st_ino,
            .size = status.st_size,
            .seconds = status.st_mtim.tv_sec,
            .nanoseconds = status.st_mtim.tv_nsec};
}

/// The stamp of what `file` leads to; nothing when there is none. Any thread.
[[nodiscard]] inline std::optional<FileStamp> fileStamp(const std::filesystem::path& file) {
    struct stat status{};
    if (::stat(file.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return fileStamp(status);
}

} // namespace pello
