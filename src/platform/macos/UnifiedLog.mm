#include "platform/macos/UnifiedLog.h"

#include "platform/PelloLog.h"

#import <Foundation/Foundation.h>
#import <os/log.h>

#include <array>
#include <string>

namespace pello {

struct UnifiedLog::Channels {
    std::array<os_log_t, 4> byCategory; // in the order of the categories

    Channels() {
        NSString* identifier = NSBundle.mainBundle.bundleIdentifier;
        const std::string subsystem =
            identifier != nil ? identifier.UTF8String : std::string(PelloLog::kSubsystem);
        for (std::size_t i = 0; i < byCategory.size(); ++i) {
            const std::string name(categoryName(static_cast<LogCategory>(i)));
            byCategory.at(i) = os_log_create(subsystem.c_str(), name.c_str());
        }
    }
};

UnifiedLog::UnifiedLog() : channels_(std::make_unique<Channels>()) {}
UnifiedLog::~UnifiedLog() = default;

void UnifiedLog::write(LogCategory category, LogLevel level, std::string_view message) {
    const os_log_type_t type = level == LogLevel::error ? OS_LOG_TYPE_ERROR : OS_LOG_TYPE_DEFAULT;
    os_log_with_type(channels_->byCategory.at(static_cast<std::size_t>(category)), type,
                     "%{public}s", std::string(message).c_str());
}

} // namespace pello
