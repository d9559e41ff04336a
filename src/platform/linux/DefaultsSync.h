#pragma once

#include "base/Date.h"
#include "platform/linux/DefaultsMerge.h"
#include "platform/linux/FileStamp.h"

#include <filesystem>
#include <optional>
#include <string>

/// The steps on the disk that keep a process's defaults and their file in line. Values go in and
/// come out; any thread.
namespace pello {

/// What a process knows of its defaults, for a worker that brings the file in line.
struct SyncRequest {
    std::filesystem::path file;
    /// What to write. Without any, the file is only read.
    DefaultsChanges changes;
    /// All values as the process knows them, `changes` included: written whole when the file has
    /// vanished or was damaged meanwhile.
    PropertyDictionary known;
    /// The file's state when it was last read or written.
    std::optional<FileStamp> stamp;
    Date now;
};

/// What a worker found and did.
struct SyncOutcome {
    /// What the file holds now; nothing when that is not known, or is as it was.
    std::optional<PropertyDictionary> contents;
    std::optional<FileStamp> stamp;
    /// Why the changes are not in the file, as a sentence; empty when they are.
    std::string failure;
    /// A damaged file was found and put aside under this name.
    std::optional<std::filesystem::path> putAside;
};

/// Reads the defaults when the program starts, and puts a damaged file aside.
[[nodiscard]] SyncOutcome openDefaults(const std::filesystem::path& file, Date now);

/// Writes `request.changes` into what the file holds by now, or reads it if it is another one.
[[nodiscard]] SyncOutcome syncDefaults(const SyncRequest& request);

} // namespace pello
