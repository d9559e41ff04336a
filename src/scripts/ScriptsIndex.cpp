#include "scripts/ScriptsIndex.h"

#include "base/Text.h"
#include "scripts/SampleScript.h"
#include "scripts/ScriptItem.h"

#include <utility>

namespace pello {
namespace {

/// What a command is found by besides its name.
std::vector<std::string> keywordsOf(const ScriptCommand& command) {
    std::vector<std::string> keywords = {"script"};
    if (command.keyword) {
        keywords.push_back(*command.keyword);
    }
    if (command.detail) {
        for (const std::string_view word : text::words(*command.detail)) {
            keywords.emplace_back(word);
        }
    }
    return keywords;
}

LaunchItem scriptItem(const ScriptCommand& command, const ScriptsIndex& index) {
    return {
        .id = ScriptItem::id(command),
        .title = command.name,
        .subtitle = command.shownDetail(),
        .kind = LaunchItem::Kind::script,
        .icon = command.launcherIcon(),
        .keywords = keywordsOf(command),
        .accessory = "Script",
        .requiresConfirmation = command.confirm,
        .revealURL = command.url,
        .run = [&index, command] { index.run(command); },
    };
}

} // namespace

ScriptsIndex::ScriptsIndex(MainLoop& loop, FolderWatcher& watcher, const FileAccess& access,
                           std::filesystem::path directory, Run run)
    : loop_(loop),
      watcher_(watcher),
      access_(access),
      directory_(std::move(directory)),
      run_(std::move(run)),
      items_(PreparedList::make({})) {}

void ScriptsIndex::rescan() {
    isScanning_ = true;
    watchFolder();
    // The items' actions need the index; the worker only hands its address on.
    auto work = [directory = directory_, &access = access_, &index = *this] {
        Published published{.found = ScriptScan::of(directory, access)};
        std::vector<LaunchItem> items;
        items.reserve(published.found.commands.size());
        for (const ScriptCommand& command : published.found.commands) {
            items.push_back(scriptItem(command, index));
        }
        published.items = PreparedList::make(std::move(items));
        return published;
    };
    std::function<void(Published)> done = [this](Published published) {
        publish(std::move(published));
    };
    loop_.background(std::move(work), scans_.wrap(std::move(done)));
}

void ScriptsIndex::publish(Published published) {
    found_ = std::move(published.found);
    items_ = std::move(published.items);
    isScanning_ = false;
    watchLinkedFolders();
    if (!watching_) { // it was missing when the scan began
        watchFolder();
        scheduleRescan();
    }
    if (onIndexChanged) {
        onIndexChanged();
    }
}

void ScriptsIndex::watchFolder() {
    if (!watching_) {
        watching_ = watcher_.watch(directory_, [this] { scheduleRescan(); });
    }
}

/// An edit of a file that a link leads to is none of this folder.
void ScriptsIndex::watchLinkedFolders() {
    if (linkedFolders_ == found_.linkedFolders) {
        return;
    }
    linkedFolders_ = found_.linkedFolders;
    watchingLinked_.clear();
    for (const std::filesystem::path& folder : linkedFolders_) {
        watchingLinked_.push_back(watcher_.watch(folder, [this] { scheduleRescan(); }));
    }
}

void ScriptsIndex::scheduleRescan() {
    if (watching_) {
        debounce_ = loop_.after(kQuietPeriod, [this] { rescan(); });
    }
}

void ScriptsIndex::writeSample(std::function<void(std::optional<std::filesystem::path>)> done) {
    loop_.background([directory = directory_] { return SampleScript::write(directory); },
                     std::move(done));
}

LaunchItem ScriptsIndex::itemWithArgument(const ScriptCommand& command,
                                          std::string_view argument) const {
    const std::string text(argument);
    return {
        .id = ScriptItem::id(command, text),
        .title = command.name + ": " + text,
        .subtitle = command.shownDetail(),
        .kind = LaunchItem::Kind::script,
        .icon = command.launcherIcon(),
        .requiresConfirmation = command.confirm,
        .isEphemeral = true,
        .run = [this, command, text] { run(command, text); },
    };
}

void ScriptsIndex::run(const ScriptCommand& command) const {
    if (command.argument != ScriptCommand::Argument::required) {
        run_(command, {});
    } else if (onNeedsArgument) {
        onNeedsArgument(command);
    }
}

} // namespace pello
