#pragma once

#include "platform/Log.h"
#include "platform/linux/XdgFolders.h"

#include <filesystem>
#include <memory>

namespace pello {

/// The log of this machine: the journal where one listens at `journalSocket`, otherwise the file
/// pello/pello.log among the user's state files.
[[nodiscard]] std::unique_ptr<Log>
makeSystemLog(const XdgFolders& folders,
              const std::filesystem::path& journalSocket = "/run/systemd/journal/socket");

} // namespace pello
