#include "sources/AppIndexer.h"

#include "sources/ApplicationItem.h"
#include "sources/ApplicationScan.h"

#include <utility>

namespace pello {

AppIndexer::AppIndexer(MainLoop& loop, FolderWatcher& watcher, const BundleReader& reader,
                       Workspace& workspace, std::filesystem::path home)
    : loop_(loop),
      watcher_(watcher),
      reader_(reader),
      workspace_(workspace),
      home_(std::move(home)),
      items_(PreparedList::make({})) {}

void AppIndexer::configure(std::vector<std::filesystem::path> directories) {
    if (directories != directories_) {
        directories_ = std::move(directories);
        installWatchers();
    }
}

void AppIndexer::rescan() {
    isScanning_ = true;
    auto work = [directories = directories_, home = home_, &reader = reader_,
                 &workspace = workspace_] {
        std::vector<LaunchItem> items;
        for (const DiscoveredApplication& application : scanApplications(directories, reader)) {
            items.push_back(applicationItem(application, home, workspace));
        }
        return PreparedList::make(std::move(items));
    };
    using Items = std::shared_ptr<const PreparedList>;
    std::function<void(Items)> done = [this](Items items) { publish(std::move(items)); };
    loop_.background(std::move(work), scans_.wrap(std::move(done)));
}

void AppIndexer::publish(std::shared_ptr<const PreparedList> items) {
    items_ = std::move(items);
    isScanning_ = false;
    if (onIndexChanged) {
        onIndexChanged();
    }
}

void AppIndexer::installWatchers() {
    watchers_.clear();
    for (const auto& directory : directories_) {
        auto watching = watcher_.watch(directory, [this] { scheduleRescan(); });
        if (watching) {
            watchers_.push_back(std::move(watching));
        }
    }
}

void AppIndexer::scheduleRescan() {
    debounce_ = loop_.after(kQuietPeriod, [this] { rescan(); });
}

} // namespace pello
