#pragma once

#include "platform/FolderWatcher.h"

namespace pello {

/// Folder watching by the kernel's file events, told on the main queue.
class VnodeFolderWatcher final : public FolderWatcher {
public:
    /// Holds nothing for a folder that cannot be opened.
    [[nodiscard]] Subscription watch(const std::filesystem::path& folder,
                                     std::function<void()> changed) override;
};

} // namespace pello
