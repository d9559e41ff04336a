#pragma once

#include <string_view>

namespace pello {

/// What a message is about: the channels of the program's diagnostics.
enum class LogCategory { hotkey, panel, menus, windows };
/// How much a message matters.
enum class LogLevel { info, error };

/// The platform's log. Any thread.
class Log {
public:
    virtual ~Log() = default;

    /// Adds one message. A log that cannot be written is silently given up.
    virtual void write(LogCategory category, LogLevel level, std::string_view message) = 0;
};

} // namespace pello
