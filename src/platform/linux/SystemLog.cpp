#include "platform/linux/SystemLog.h"

#include "platform/linux/FileLog.h"
#include "platform/linux/JournalLog.h"

#include <system_error>

namespace pello {

std::unique_ptr<Log> makeSystemLog(const XdgFolders& folders,
                                   const std::filesystem::path& journalSocket) {
    std::error_code error;
    if (std::filesystem::is_socket(journalSocket, error)) {
        return std::make_unique<JournalLog>();
    }
    return std::make_unique<FileLog>(folders.state / "pello" / "pello.log");
}

} // namespace pello
