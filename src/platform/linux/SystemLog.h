#pragma once

#include "platform/Log.h"
#include "platform/linux/XdgFolders.h"

#include <filesystem>
#include <memory>

namespace pello {

/// Where the journal listens, if there is one.
inline constexpr const char* kJournalSocket = "/run/systemd/journal/socket";

/// Whether a journal takes what is logged.
[[nodiscard]] bool hasJournal(const std::filesystem::path& journalSocket = kJournalSocket);

/// Where a log without a journal is: pello/pello.log among the user's state files.
[[nodiscard]] std::filesystem::path logFile(const XdgFolders& folders);

/// The log of this machine: the journal where one listens at `journalSocket`, otherwise the file.
[[nodiscard]] std::unique_ptr<Log>
makeSystemLog(const XdgFolders& folders,
              const std::filesystem::path& journalSocket = kJournalSocket);

} // namespace pello
