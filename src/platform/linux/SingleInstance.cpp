#include "platform/linux/SingleInstance.h"

#include <sys/stat.h>
#include <sys/syscall.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <unistd.h>

namespace pello {
namespace {

// The sticky bit tells those who clean the folder of runtime files that this one is in use.
constexpr mode_t kMode = S_IRUSR | S_IWUSR | S_ISVTX;

/// What the two bytes of the file stand for.
constexpr off_t kRunning = 0;
constexpr off_t kWaiting = 1;

struct flock lockOn(off_t byte, int type) {
    struct flock range = {};
    range.l_type = static_cast<short>(type);
    range.l_whence = SEEK_SET;
    range.l_start = byte;
    range.l_len = 1;
    return range;
}

bool tryLock(int file) {
    struct flock range = lockOn(kRunning, F_WRLCK);
    return ::fcntl(file, F_SETLK, &range) == 0;
}

/// Tells the others, as long as this object lives, that somebody waits: several may.
class Waiting {
public:
    explicit Waiting(int file) : file_(file) { set(F_RDLCK); }
    ~Waiting() { set(F_UNLCK); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    void set(int type) const {
        struct flock range = lockOn(kWaiting, type);
        ::fcntl(file_, F_SETLK, &range);
    }

    int file_;
};

std::optional<pid_t> holder(int file) {
    struct flock range = lockOn(kRunning, F_WRLCK);
    if (::fcntl(file, F_GETLK, &range) != 0 || range.l_type == F_UNLCK) {
        return std::nullopt;
    }
    return range.l_pid;
}

bool endsWithin(const FileDescriptor& process, std::chrono::milliseconds patience) {
    pollfd end = {.fd = process.number(), .events = POLLIN, .revents = 0};
    int count = 0;
    do {
        count = ::poll(&end, 1, static_cast<int>(patience.count()));
    } while (count < 0 && errno == EINTR);
    return count > 0;
}

bool sendSignal(const FileDescriptor& process, int signal) {
    return ::syscall(SYS_pidfd_send_signal, process.number(), signal, nullptr, 0) == 0;
}

/// Whether the process has gone at last.
bool end(const FileDescriptor& process, std::chrono::milliseconds patience) {
    sendSignal(process, SIGTERM);
    if (endsWithin(process, patience)) {
        return true;
    }
    sendSignal(process, SIGKILL);
    return endsWithin(process, patience);
}

std::string reason() {
    return std::string(": ") + std::strerror(errno);
}

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& lockFile)
    : file_(::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kMode)) {
    if (!file_) {
        problem_ = "cannot open \"" + lockFile.string() + '"' + reason();
    }
}

std::string SingleInstance::takeOver(std::chrono::milliseconds patience) {
    if (!file_) {
        return problem_;
    }
    const Waiting waiting(file_.number());
    while (!tryLock(file_.number())) {
        if (errno != EACCES && errno != EAGAIN && errno != EINTR) {
            return "cannot lock the file that keeps launchers apart" + reason();
        }
        const auto other = holder(file_.number());
        if (!other) {
            continue; // it has gone meanwhile
        }
        const std::string name = "the launcher that runs as process " + std::to_string(*other);
        // A number may pass to another process; what was opened while the lock was held may not.
        const FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, *other, 0)));
        if (!process && errno != ESRCH) {
            return "cannot end " + name + reason();
        }
        if (process && holder(file_.number()) == other && !end(process, patience)) {
            return "cannot end " + name;
        }
    }
    return {};
}

bool SingleInstance::isAwaited() const {
    struct flock range = lockOn(kWaiting, F_WRLCK);
    return ::fcntl(file_.number(), F_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

} // namespace pello
