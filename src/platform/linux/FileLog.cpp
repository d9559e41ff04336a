#include "platform/linux/FileLog.h"

#include "base/Text.h"
#include "platform/PelloLog.h"
#include "platform/linux/AtomicFile.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/UtcText.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace pello {
namespace {

namespace fs = std::filesystem;

std::string timeStamp() {
    const std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
    return utcText(Date::fromUnix(now.count()), "%Y-%m-%dT%H:%M:%SZ");
}

/// Whether showing `scalar` could move the cursor, end the line or command a terminal.
bool isControl(std::string_view scalar) {
    const auto first = static_cast<unsigned char>(scalar.front());
    if (first < 0x20 || first == 0x7F) {
        return true;
    }
    return scalar.size() >= 2 && first == 0xC2 && static_cast<unsigned char>(scalar[1]) < 0xA0;
}

/// `message`, cut to size, as one line of well-formed text.
std::string asLine(std::string_view message) {
    const bool isCut = message.size() > FileLog::kMaximumMessageBytes;
    const std::string whole = text::wellFormed(message.substr(0, FileLog::kMaximumMessageBytes));
    std::string line;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const std::string_view rest = std::string_view(whole).substr(i);
        if (!isControl(rest)) {
            line += whole[i];
            continue;
        }
        i += static_cast<unsigned char>(whole[i]) == 0xC2 ? 1U : 0U;
        std::array<char, 8> escape{};
        std::snprintf(escape.data(), escape.size(), "\\x%02x",
                      static_cast<unsigned>(static_cast<unsigned char>(whole[i])));
        line += escape.data();
    }
    return isCut ? line + "…" : line;
}

/// Opens the log to append, for the user alone.
FileDescriptor openLog(const fs::path& file) {
    return FileDescriptor(
        ::open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600));
}

/// Whether `log` is still the file of that name and has no room for `count` bytes more.
bool isFull(int log, const fs::path& file, std::size_t count) {
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(log, &opened) == 0 && S_ISREG(opened.st_mode) &&
           static_cast<std::size_t>(opened.st_size) + count > FileLog::kMaximumFileBytes &&
           ::stat(file.c_str(), &named) == 0 && named.st_dev == opened.st_dev &&
           named.st_ino == opened.st_ino;
}

/// Makes room by renaming the file. The lock on the full file itself lets only one of several
/// processes do it; for the others it is then no longer the file of that name.
void rotate(int log, const fs::path& file, std::size_t count) {
    if (::flock(log, LOCK_EX) != 0) {
        return;
    }
    if (isFull(log, file, count)) {
        std::error_code ignored;
        fs::rename(file, file.string() + ".1", ignored);
    }
    ::flock(log, LOCK_UN);
}

} // namespace

void FileLog::write(LogCategory category, LogLevel level, std::string_view message) {
    std::string line = timeStamp() + ' ' + std::string(categoryName(category));
    line += (level == LogLevel::error ? " error: " : ": ") + asLine(message) + '\n';

    const std::lock_guard lock(mutex_);
    if (makePrivateFolder(file_.parent_path())) {
        return;
    }
    FileDescriptor log = openLog(file_);
    if (log && isFull(log.number(), file_, line.size())) {
        rotate(log.number(), file_, line.size());
        log = openLog(file_);
    }
    if (log) {
        // In one piece, so that lines of several processes do not mix.
        [[maybe_unused]] const ssize_t written = ::write(log.number(), line.data(), line.size());
    }
}

} // namespace pello
