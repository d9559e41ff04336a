#pragma once

#include "base/Signal.h"
#include "platform/FolderWatcher.h"

#include <map>
#include <memory>
#include <set>

namespace pello {

/// Folder watching where the owner says what changed.
class MemoryFolderWatcher final : public FolderWatcher {
public:
    [[nodiscard]] Subscription watch(const std::filesystem::path& folder,
                                     std::function<void()> changed) override;

    /// Tells the watchers of `folder`.
    void touch(const std::filesystem::path& folder);

    /// `folder` cannot be watched from now on.
    void refuse(const std::filesystem::path& folder) { refused_.insert(folder); }

    /// How many watches are in force, and how many were ever asked for.
    [[nodiscard]] int activeCount() const { return *activeCount_; }
    [[nodiscard]] int installedCount() const { return installedCount_; }

private:
    std::map<std::filesystem::path, Signal<>> folders_;
    std::set<std::filesystem::path> refused_;
    std::shared_ptr<int> activeCount_ = std::make_shared<int>(0);
    int installedCount_ = 0;
};

} // namespace pello
