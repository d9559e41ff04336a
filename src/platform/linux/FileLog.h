#pragma once

#include "platform/Log.h"

#include <cstddef>
#include <filesystem>
#include <mutex>

namespace pello {

/// A log in a file of bounded size, one line per message: the time in UTC, the category, the text
/// with control characters written as escapes.
///
/// A file that is full becomes the one ending in ".1", and the one before that goes. Any thread,
/// and several processes may write the same file.
class FileLog final : public Log {
public:
    static constexpr std::size_t kMaximumFileBytes = std::size_t{1} << 20;
    static constexpr std::size_t kMaximumMessageBytes = std::size_t{16} << 10;

    explicit FileLog(std::filesystem::path file) : file_(std::move(file)) {}

    void write(LogCategory category, LogLevel level, std::string_view message) override;

private:
    std::mutex mutex_;
    std::filesystem::path file_;
};

} // namespace pello
