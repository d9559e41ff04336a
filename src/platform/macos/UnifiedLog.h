#pragma once

#include "platform/Log.h"

#include <memory>

namespace pello {

/// The system's log. Its subsystem is the program's bundle identifier, or the one of PelloLog when
/// it has none. Any thread.
class UnifiedLog final : public Log {
public:
    UnifiedLog();
    ~UnifiedLog() override;
    UnifiedLog(const UnifiedLog&) = delete;
    UnifiedLog& operator=(const UnifiedLog&) = delete;

    void write(LogCategory category, LogLevel level, std::string_view message) override;

private:
    struct Channels;
    std::unique_ptr<Channels> channels_;
};

} // namespace pello
