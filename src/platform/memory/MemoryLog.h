#pragma once

#include "platform/Log.h"

#include <mutex>
#include <string>
#include <vector>

namespace pello {

/// A log kept in memory.
class MemoryLog final : public Log {
public:
    void write(LogCategory category, LogLevel level, std::string_view message) override;

    /// The messages so far as "category: text", an error as "category error: text".
    [[nodiscard]] std::vector<std::string> lines() const;

private:
    mutable std::mutex mutex_;
    std::vector<std::string> lines_;
};

} // namespace pello
