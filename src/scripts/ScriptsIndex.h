#pragma once

#include "base/LatestOnly.h"
#include "base/Subscription.h"
#include "platform/FolderWatcher.h"
#include "platform/MainLoop.h"
#include "scripts/ScriptCommand.h"
#include "scripts/ScriptScan.h"
#include "search/PreparedList.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace pello {

/// Keeps the list of the user's scripts.
///
/// Scans the scripts folder on a worker thread, publishes the commands as a whole, watches the
/// folder and scans again when it has been quiet for a moment after a change. Main thread only.
class ScriptsIndex {
public:
    /// How long the folder must be quiet after a change before it is scanned again.
    static constexpr std::chrono::milliseconds kQuietPeriod{300};

    /// Runs a command with an argument, which is empty when there is none.
    using Run = std::function<void(const ScriptCommand&, std::string_view argument)>;

    /// `loop`, `watcher`, `access` and what `run` refers to must outlive the index, and the index
    /// its items. `directory` is made when it is missing.
    ScriptsIndex(MainLoop& loop, FolderWatcher& watcher, const FileAccess& access,
                 std::filesystem::path directory, Run run);

    /// Scans the folder. Of scans that overlap only the one started last counts.
    void rescan();

    /// The commands of the last finished scan, by name; and what was wrong with files.
    [[nodiscard]] std::span<const ScriptCommand> commands() const { return found_.commands; }
    [[nodiscard]] std::span<const ScriptScan::Problem> problems() const { return found_.problems; }

    /// One item per command, in the same order. Never null.
    [[nodiscard]] std::shared_ptr<const PreparedList> items() const { return items_; }

    [[nodiscard]] bool isScanning() const { return isScanning_; }
    [[nodiscard]] const std::filesystem::path& directory() const { return directory_; }

    /// Writes the sample script, unless it is there, and hands on where it is; nothing when it
    /// could not be written.
    void writeSample(std::function<void(std::optional<std::filesystem::path>)> done);

    /// The item that runs `command` with `argument`, made for one query only.
    [[nodiscard]] LaunchItem itemWithArgument(const ScriptCommand& command,
                                              std::string_view argument) const;

    /// Runs `command` as its row does: one that must have an argument asks for it first.
    void run(const ScriptCommand& command) const;
    void run(const ScriptCommand& command, std::string_view argument) const {
        run_(command, argument);
    }

    /// Called after the commands were replaced.
    std::function<void()> onIndexChanged;

    /// Called when a command is run without the argument that it must have.
    std::function<void(const ScriptCommand&)> onNeedsArgument;

private:
    struct Published {
        ScriptScan found;
        std::shared_ptr<const PreparedList> items;
    };

    void publish(Published published);
    void watchFolder();
    void watchLinkedFolders();
    void scheduleRescan();

    MainLoop& loop_;
    FolderWatcher& watcher_;
    const FileAccess& access_;
    std::filesystem::path directory_;
    Run run_;
    ScriptScan found_;
    std::shared_ptr<const PreparedList> items_;
    bool isScanning_ = false;
    Subscription watching_;
    std::vector<std::filesystem::path> linkedFolders_;
    std::vector<Subscription> watchingLinked_;
    Subscription debounce_;
    LatestOnly scans_;
};

} // namespace pello
