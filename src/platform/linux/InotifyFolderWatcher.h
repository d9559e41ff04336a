#pragma once

#include "platform/FolderWatcher.h"

#include <memory>

namespace pello {

/// Folder watching by the kernel's inotify.
///
/// A folder that does not exist, or that goes away later, is watched for: the nearest folder on the
/// way to it that exists is watched in its place, and its return is a change. A folder reached
/// through a link is the one that the link pointed to when it was found, and one whose parent is
/// renamed is still watched, under the parent's new name.
///
/// Needs Qt's event loop on the main thread. A change is told in a later turn of it, and the
/// changes that have come together by then once.
class InotifyFolderWatcher final : public FolderWatcher {
public:
    InotifyFolderWatcher();
    ~InotifyFolderWatcher() override;
    InotifyFolderWatcher(const InotifyFolderWatcher&) = delete;
    InotifyFolderWatcher& operator=(const InotifyFolderWatcher&) = delete;

    /// Holds nothing for a path that is not absolute and where the kernel has no watches left.
    [[nodiscard]] Subscription watch(const std::filesystem::path& folder,
                                     std::function<void()> changed) override;

private:
    class Kernel;
    std::shared_ptr<Kernel> kernel_;
};

} // namespace pello
