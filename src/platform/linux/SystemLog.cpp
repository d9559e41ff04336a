#include "platform/linux/SystemLog.h"

#include "platform/linux/FileLog.h"
#include "platform/linux/JournalLog.h"

#include <system_error>

namespace pello {

bool hasJournal(const std::filesystem::path& journalSocket) {
    std::error_code error;
    return std::filesystem::is_socket(journalSocket, error);
}

std::filesystem::path logFile(const XdgFolders& folders) {
    return folders.state / "pello" / "pello.log";
}

std::unique_ptr<Log> makeSystemLog(const XdgFolders& folders,
                                   const std::filesystem::path& journalSocket) {
    if (hasJournal(journalSocket)) {
        return std::make_unique<JournalLog>();
    }
    return std::make_unique<FileLog>(logFile(folders));
}

} // namespace pello
