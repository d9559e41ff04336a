#pragma once

#include "base/LatestOnly.h"
#include "platform/FolderWatcher.h"
#include "platform/Log.h"
#include "platform/MainLoop.h"
#include "platform/UserDefaults.h"
#include "platform/linux/DefaultsSync.h"

#include <cstdint>
#include <filesystem>
#include <memory>

namespace pello {

/// User defaults in a property-list file, which several processes may use at a time.
///
/// All values are in memory. The keys that were set in a turn of the main loop are merged into the
/// file by one write on a worker, and what another process put there comes back as
/// `changedElsewhere`. What the disk refuses stays pending and is tried again with the next change.
class PlistUserDefaults final : public UserDefaults {
public:
    /// Reads `file`; makes its folder, so that it can be watched. `loop`, `watcher` and `log` must
    /// outlive the defaults.
    PlistUserDefaults(std::filesystem::path file, MainLoop& loop, FolderWatcher& watcher, Log& log);

    /// Flushes.
    ~PlistUserDefaults() override;

    PlistUserDefaults(const PlistUserDefaults&) = delete;
    PlistUserDefaults& operator=(const PlistUserDefaults&) = delete;

    [[nodiscard]] std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    void registerDefaults(PropertyDictionary defaults) override;
    [[nodiscard]] std::vector<std::string> storedKeys() const override;
    bool flush() override;

private:
    void change(std::string_view key, std::optional<PropertyValue> value);
    void watchFolders();
    void scheduleSync();
    void startSync();
    [[nodiscard]] SyncRequest nextRequest();
    void finishSync(SyncOutcome outcome);
    [[nodiscard]] std::vector<std::string> adopt(PropertyDictionary contents,
                                                 const DefaultsChanges& written);
    void notePutAside(const SyncOutcome& outcome);
    void noteRefusal(const std::string& failure);
    void tell(const std::vector<std::string>& changedKeys);

    std::filesystem::path file_;
    MainLoop& loop_;
    FolderWatcher& watcher_;
    Log& log_;

    PropertyDictionary registered_;
    PropertyDictionary stored_;
    PropertyDictionary onDisk_; // as last read or written
    std::optional<FileStamp> stamp_;

    DefaultsChanges pending_;  // not handed to a worker
    DefaultsChanges underWay_; // in the hands of one
    bool mayWrite_ = false;    // there was a change since the last attempt
    bool isScheduled_ = false;
    bool isBusy_ = false;

    // Workers write in the order of their numbers, or not at all.
    struct Turnstile;
    std::shared_ptr<Turnstile> turnstile_;
    std::uint64_t number_ = 0;

    bool isRefusalKnown_ = false;
    std::vector<std::string> untold_;
    LatestOnly turns_;
    LatestOnly syncs_;
    std::vector<Subscription> watches_;
};

} // namespace pello
