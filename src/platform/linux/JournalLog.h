#pragma once

#include "platform/Log.h"

namespace pello {

/// The log in the system's journal, under the identifier "pello", the category and the subsystem
/// as fields of their own (PELLO_CATEGORY, PELLO_SUBSYSTEM). Any thread.
class JournalLog final : public Log {
public:
    void write(LogCategory category, LogLevel level, std::string_view message) override;
};

} // namespace pello
