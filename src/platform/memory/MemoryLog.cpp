#include "platform/memory/MemoryLog.h"

#include "platform/PelloLog.h"

namespace pello {

void MemoryLog::write(LogCategory category, LogLevel level, std::string_view message) {
    std::string line(categoryName(category));
    line += level == LogLevel::error ? " error: " : ": ";
    line += message;
    const std::lock_guard lock(mutex_);
    lines_.push_back(std::move(line));
}

std::vector<std::string> MemoryLog::lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
}

} // namespace pello
