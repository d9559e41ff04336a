#pragma once

#include "base/Subscription.h"

#include <filesystem>
#include <functional>

namespace pello {

/// Tells when the contents of folders change. Main thread only.
class FolderWatcher {
public:
    virtual ~FolderWatcher() = default;

    /// Calls `changed` on the main thread after entries of `folder` were added, removed, renamed or
    /// rewritten, possibly once for several changes, while the returned subscription lives. Folders
    /// inside it are not watched. The subscription holds nothing when the folder cannot be watched.
    [[nodiscard]] virtual Subscription watch(const std::filesystem::path& folder,
                                             std::function<void()> changed) = 0;
};

} // namespace pello
