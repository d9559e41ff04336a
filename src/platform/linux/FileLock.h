#pragma once

#include "platform/linux/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <system_error>

namespace pello {

/// Keeps other processes that ask for the same lock file out, as long as it lives. Any thread; two
/// threads of one process exclude each other, too. The kernel frees the lock of a process that
/// dies. The lock file stays: removing it would let two processes hold two files of one name.
class FileLock {
public:
    /// Waits for the lock until `patience` is over.
    FileLock(const std::filesystem::path& lockFile, std::chrono::milliseconds patience);
    ~FileLock();

    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Why it is not held. A file system without locks is no error.
    [[nodiscard]] std::error_code error() const { return error_; }

    /// Whether nobody else is inside; false on a file system without locks.
    [[nodiscard]] bool isHeld() const { return isHeld_; }

private:
    FileDescriptor file_;
    std::error_code error_;
    bool isHeld_ = false;
};

} // namespace pello
