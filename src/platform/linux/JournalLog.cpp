#include "platform/linux/JournalLog.h"

#include "base/Text.h"
#include "platform/PelloLog.h"

#define SD_JOURNAL_SUPPRESS_LOCATION
#include <sys/uio.h>
#include <systemd/sd-journal.h>

#include <array>
#include <string>
#include <syslog.h>

namespace pello {

void JournalLog::write(LogCategory category, LogLevel level, std::string_view message) {
    const int priority = level == LogLevel::error ? LOG_ERR : LOG_INFO;
    std::array fields{
        "MESSAGE=" + text::wellFormed(message),
        "PRIORITY=" + std::to_string(priority),
        std::string("SYSLOG_IDENTIFIER=pello"),
        "PELLO_CATEGORY=" + std::string(categoryName(category)),
        "PELLO_SUBSYSTEM=" + std::string(PelloLog::kSubsystem),
    };
    std::array<iovec, fields.size()> pieces{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        pieces.at(i) = {.iov_base = fields.at(i).data(), .iov_len = fields.at(i).size()};
    }
    sd_journal_sendv(pieces.data(), static_cast<int>(pieces.size()));
}

} // namespace pello
