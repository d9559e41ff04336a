#pragma once

#include "base/LatestOnly.h"
#include "base/Subscription.h"
#include "platform/BundleReader.h"
#include "platform/FolderWatcher.h"
#include "platform/MainLoop.h"
#include "platform/Workspace.h"
#include "search/PreparedList.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace pello {

/// Keeps the list of installed applications.
///
/// Scans the configured folders on a worker thread, publishes the list as a whole, watches the
/// folders and scans again when they have been quiet for a while after a change. Failures are
/// silent: what cannot be read or watched is left out. Main thread only.
class AppIndexer {
public:
    /// How long the folders must be quiet after a change before they are scanned again.
    static constexpr std::chrono::milliseconds kQuietPeriod{1500};

    /// Everything must outlive the indexer; `reader` the scans that are under way too, `workspace`
    /// the items. `home` is the user's home folder, which display paths shorten.
    AppIndexer(MainLoop& loop, FolderWatcher& watcher, const BundleReader& reader,
               Workspace& workspace, std::filesystem::path home);

    /// Sets the folders to scan and to watch. Does nothing when they are the current ones in the
    /// same order; never scans by itself.
    void configure(std::vector<std::filesystem::path> directories);

    /// Scans the folders. Of scans that overlap only the one started last counts.
    void rescan();

    /// The applications of the last finished scan, sorted by name. Never null.
    [[nodiscard]] std::shared_ptr<const PreparedList> items() const { return items_; }

    [[nodiscard]] bool isScanning() const { return isScanning_; }
    [[nodiscard]] const std::vector<std::filesystem::path>& directories() const {
        return directories_;
    }

    /// Called after `items` was replaced.
    std::function<void()> onIndexChanged;

private:
    void installWatchers();
    void scheduleRescan();
    void publish(std::shared_ptr<const PreparedList> items);

    MainLoop& loop_;
    FolderWatcher& watcher_;
    const BundleReader& reader_;
    Workspace& workspace_;
    std::filesystem::path home_;
    std::vector<std::filesystem::path> directories_;
    std::shared_ptr<const PreparedList> items_;
    bool isScanning_ = false;
    std::vector<Subscription> watchers_;
    Subscription debounce_;
    LatestOnly scans_;
};

} // namespace pello
