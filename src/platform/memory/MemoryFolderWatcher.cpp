#include "platform/memory/MemoryFolderWatcher.h"

namespace pello {

Subscription MemoryFolderWatcher::watch(const std::filesystem::path& folder,
                                        std::function<void()> changed) {
    if (refused_.contains(folder)) {
        return {};
    }
    auto watching = std::make_shared<Subscription>(folders_[folder].connect(std::move(changed)));
    ++installedCount_;
    ++*activeCount_;
    return Subscription([watching, active = activeCount_] {
        watching->reset();
        --*active;
    });
}

void MemoryFolderWatcher::touch(const std::filesystem::path& folder) {
    folders_[folder].emit();
}

} // namespace pello
