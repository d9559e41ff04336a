#pragma once

#include "platform/Log.h"

#include <string_view>

namespace pello {

/// The program's diagnostics: one channel per category, over the platform's log.
class PelloLog {
public:
    /// The subsystem under which the messages stand when the program has no bundle identifier.
    static constexpr std::string_view kSubsystem = "is.tolva.pello";

    class Channel {
    public:
        Channel(Log& log, LogCategory category) : log_(log), category_(category) {}
        void info(std::string_view message) const {
            log_.write(category_, LogLevel::info, message);
        }
        void error(std::string_view message) const {
            log_.write(category_, LogLevel::error, message);
        }

    private:
        Log& log_;
        LogCategory category_;
    };

    /// `log` must outlive this object.
    explicit PelloLog(Log& log)
        : hotkey(log, LogCategory::hotkey),
          panel(log, LogCategory::panel),
          menus(log, LogCategory::menus),
          windows(log, LogCategory::windows) {}

    const Channel hotkey;
    const Channel panel;
    const Channel menus;
    const Channel windows;
};

/// The category's name as logs show it.
[[nodiscard]] std::string_view categoryName(LogCategory category);

} // namespace pello
