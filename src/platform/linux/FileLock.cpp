#include "platform/linux/FileLock.h"

#include <sys/file.h>

#include <cerrno>
#include <fcntl.h>
#include <thread>

namespace pello {
namespace {

constexpr std::chrono::milliseconds kRetryInterval{2};

/// 0 when `file` is locked, else the reason as an errno. The kernel has no way to wait for a lock
/// only so long, so this asks again: a writer holds the lock for a few milliseconds.
int lockWithin(int file, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR) {
            continue;
        }
        if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= end) {
            return errno;
        }
        std::this_thread::sleep_for(kRetryInterval);
    }
    return 0;
}

bool meansUnsupported(int reason) {
    return reason == ENOLCK || reason == EOPNOTSUPP || reason == ENOSYS;
}

} // namespace

FileLock::FileLock(const std::filesystem::path& lockFile, std::chrono::milliseconds patience)
    : file_(::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    const int reason = file_ ? lockWithin(file_.number(), patience) : errno;
    isHeld_ = reason == 0;
    if (!isHeld_ && !meansUnsupported(reason)) {
        error_ = {reason, std::generic_category()};
    }
}

FileLock::~FileLock() {
    if (isHeld_) {
        // Closing alone would not free it while a process that is being started shares the file.
        ::flock(file_.number(), LOCK_UN);
    }
}

} // namespace pello
