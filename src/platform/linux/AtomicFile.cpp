#include "platform/linux/AtomicFile.h"

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/UtcText.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

// The order that makes it safe:
//
//   write a file beside it -> fsync that -> rename it over the old one -> fsync the folder
//
// Until the rename the old file is untouched; the rename itself is atomic; and it must not reach
// the disk before the content, or a power cut would leave an empty file under the good name.

namespace pello {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;

std::error_code lastError() {
    return {errno, std::generic_category()};
}

/// What the names of unfinished files of `file` begin with.
std::string unfinishedPrefix(const fs::path& file) {
    return '.' + file.filename().string() + ".new-";
}

std::error_code writeAll(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t count = ::write(file, content.data(), content.size());
        if (count >= 0) {
            content.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return lastError();
        }
    }
    return {};
}

std::error_code synchronise(int file) {
    // Some file systems cannot do it for folders, and say so.
    return ::fsync(file) == 0 || errno == EINVAL ? std::error_code{} : lastError();
}

std::error_code synchroniseFolder(const fs::path& folder) {
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return descriptor ? synchronise(descriptor.number()) : lastError();
}

std::error_code writeDurably(int file, std::string_view content,
                             std::optional<FileStamp>* written) {
    if (auto error = writeAll(file, content)) {
        return error;
    }
    if (auto error = synchronise(file)) {
        return error;
    }
    struct stat status{};
    if (written != nullptr && ::fstat(file, &status) == 0) {
        *written = fileStamp(status);
    }
    return {};
}

} // namespace

fs::path followingLinks(const fs::path& file) {
    fs::path end = file;
    for (int i = 0; i < kMostLinks; ++i) {
        std::error_code error;
        const fs::path next = fs::read_symlink(end, error);
        if (error) {
            break;
        }
        end = next.is_absolute() ? next : end.parent_path() / next;
    }
    return end;
}

std::error_code makePrivateFolder(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error)) {
        return {};
    }
    if (auto above = makePrivateFolder(folder.parent_path())) {
        return above;
    }
    const bool exists = ::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST;
    return exists ? std::error_code{} : lastError();
}

std::error_code replaceFile(const fs::path& file, std::string_view content,
                            std::optional<FileStamp>* written) {
    const fs::path folder = file.parent_path();
    std::string unfinished = (folder / unfinishedPrefix(file)).string() + "XXXXXX";
    std::error_code error;
    {
        const FileDescriptor descriptor(::mkostemp(unfinished.data(), O_CLOEXEC)); // mode 0600
        if (!descriptor) {
            return lastError();
        }
        error = writeDurably(descriptor.number(), content, written);
    }
    if (!error && ::rename(unfinished.c_str(), file.c_str()) != 0) {
        error = lastError();
    }
    if (error) {
        ::unlink(unfinished.c_str());
        return error;
    }
    return synchroniseFolder(folder);
}

void removeLeftovers(const fs::path& file) {
    const std::string prefix = unfinishedPrefix(file);
    std::error_code error;
    for (fs::directory_iterator entry(file.parent_path(), error); !error && entry != end(entry);
         entry.increment(error)) {
        if (entry->path().filename().string().starts_with(prefix)) {
            std::error_code ignored;
            fs::remove(entry->path(), ignored);
        }
    }
}

std::optional<fs::path> putAside(const fs::path& file, Date now, std::error_code& error) {
    const std::string name = file.string() + ".unreadable-" + utcText(now, "%Y%m%dT%H%M%SZ");
    fs::path aside = name;
    for (int i = 2; fs::exists(fs::symlink_status(aside, error)); ++i) {
        aside = name + '-' + std::to_string(i);
    }
    fs::rename(file, aside, error);
    if (error) {
        return std::nullopt;
    }
    return aside;
}

} // namespace pello
