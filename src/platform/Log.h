#pragma once

#include <string_view>

namespace pello {

enum class LogCategory { hotkey, panel, menus, windows };
enum class LogLevel { info, error };

/// The platform's log. Any thread.
class Log {
public:
    virtual ~Log() = default;

    /// Adds one message. A log that cannot be written is silently given up.
    virtual void write(LogCategory category, LogLevel level, std::string_view message) = 0;
};

} // namespace pello
