#pragma once

#include "platform/linux/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace pello {

/// Sees to it that one process of a program runs, as long as it lives: the one that holds the lock
/// on a file.
///
/// The kernel keeps the lock and tells who holds it, so nothing that a dead process left behind can
/// be mistaken for a live one. The lock ends with the process or with this object; the file stays.
/// One object per file and process, which must not open the file otherwise.
class SingleInstance {
public:
    explicit SingleInstance(const std::filesystem::path& lockFile);

    /// Ends every other process that holds the lock and takes it: asks by SIGTERM and, where that
    /// has no effect within `patience`, ends it by SIGKILL. Waits until it has gone. Empty when the
    /// lock is held then, else a sentence that says why it is not.
    [[nodiscard]] std::string takeOver(std::chrono::milliseconds patience);

    /// Whether another process waits to take over from this one.
    [[nodiscard]] bool isAwaited() const;

private:
    FileDescriptor file_;
    std::string problem_;
};

} // namespace pello
