#include "platform/linux/DefaultsSync.h"

#include "platform/bundles/PropertyList.h"
#include "platform/linux/AtomicFile.h"
#include "platform/linux/FileLock.h"
#include "platform/linux/PropertyListFile.h"

#include <chrono>

namespace pello {
namespace {

namespace fs = std::filesystem;
using State = PropertyListFile::State;

constexpr std::chrono::milliseconds kLockPatience{2000};

fs::path lockFileOf(const fs::path& file) {
    return file.parent_path() / ('.' + file.filename().string() + ".lock");
}

SyncOutcome notWritten(const std::string& reason) {
    return {.contents = std::nullopt,
            .stamp = std::nullopt,
            .failure = "The settings cannot be saved: " + reason + ".",
            .putAside = std::nullopt};
}

SyncOutcome notReadable(const fs::path& file, std::error_code error) {
    return notWritten(file.string() + " cannot be read (" + error.message() + ')');
}

SyncOutcome holding(PropertyListFile loaded) {
    return {.contents = std::move(loaded.values),
            .stamp = loaded.stamp,
            .failure = {},
            .putAside = std::nullopt};
}

/// Reads the file unless it is the one that the process knows. A file that is gone or damaged
/// changes nothing yet: somebody may be about to replace it.
SyncOutcome reread(const SyncRequest& request) {
    SyncOutcome outcome;
    outcome.stamp = request.stamp;
    if (fileStamp(request.file) == request.stamp) {
        return outcome;
    }
    auto loaded = PropertyListFile::load(request.file);
    return loaded.state == State::read ? holding(std::move(loaded)) : outcome;
}

/// Writes `values` to `file` and tells them as the next reader will find them.
SyncOutcome write(const fs::path& file, const PropertyDictionary& values) {
    const auto bytes = serializePropertyList(values);
    const auto readBack = bytes ? parsePropertyList(*bytes) : std::nullopt;
    if (!readBack) {
        return notWritten("they are too large, or nested too deep");
    }
    std::optional<FileStamp> stamp;
    if (const auto error = replaceFile(file, *bytes, &stamp)) {
        return notWritten(file.string() + ": " + error.message());
    }
    return {.contents = *readBack->as<PropertyDictionary>(),
            .stamp = stamp,
            .failure = {},
            .putAside = std::nullopt};
}

/// Merges and writes, while the file is locked.
SyncOutcome mergeInto(const fs::path& file, const SyncRequest& request) {
    auto loaded = PropertyListFile::load(file);
    std::optional<fs::path> aside;
    if (loaded.state == State::unreadable) {
        return notReadable(file, loaded.error);
    }
    if (loaded.state == State::damaged) {
        std::error_code error;
        aside = putAside(file, request.now, error);
        if (!aside) {
            return notReadable(file, error);
        }
    }
    const bool isRead = loaded.state == State::read;
    PropertyDictionary merged = isRead ? loaded.values : request.known;
    applyChanges(request.changes, merged);
    if (isRead && merged == loaded.values) {
        return holding(std::move(loaded)); // another process made the same change
    }
    SyncOutcome outcome = write(file, merged);
    outcome.putAside = aside;
    return outcome;
}

} // namespace

SyncOutcome openDefaults(const fs::path& file, Date now) {
    auto loaded = PropertyListFile::load(file);
    std::optional<fs::path> aside;
    std::error_code error = loaded.error;
    if (loaded.state == State::damaged) {
        const fs::path target = followingLinks(file);
        const FileLock lock(lockFileOf(target), kLockPatience);
        loaded = PropertyListFile::load(file); // another process may have been quicker
        error = lock.error() ? lock.error() : loaded.error;
        if (loaded.state == State::damaged && !error) {
            aside = putAside(target, now, error);
            loaded.stamp.reset();
        }
    }
    if (error) {
        return notReadable(file, error);
    }
    SyncOutcome outcome = holding(std::move(loaded));
    outcome.putAside = aside;
    return outcome;
}

SyncOutcome syncDefaults(const SyncRequest& request) {
    if (request.changes.empty()) {
        return reread(request);
    }
    const fs::path file = followingLinks(request.file);
    if (const auto error = makePrivateFolder(file.parent_path())) {
        return notWritten(file.parent_path().string() + ": " + error.message());
    }
    const FileLock lock(lockFileOf(file), kLockPatience);
    if (lock.error()) {
        return notWritten(lockFileOf(file).string() + ": " + lock.error().message());
    }
    if (lock.isHeld()) {
        removeLeftovers(file);
    }
    return mergeInto(file, request);
}

} // namespace pello
