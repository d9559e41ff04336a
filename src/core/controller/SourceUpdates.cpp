#include "core/controller/SourceUpdates.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace pello {

SourceUpdates::SourceUpdates(const ControllerParts& parts, Notify notify)
    : parts_(parts), notify_(std::move(notify)) {
    watch();
    parts_.indexer.configure(parts_.settings.searchDirectories(parts_.bundles.standardFolders()));
    parts_.aliases.configure(parts_.settings.urlAliases.get());
}

void SourceUpdates::watch() {
    parts_.indexer.onIndexChanged = [this] { applicationsChanged(); };
    parts_.aliases.onIndexChanged = tellingOf(Source::aliases);
    parts_.scripts.onIndexChanged = tellingOf(Source::scripts);
    parts_.quickActions.onChanged = tellingOf(Source::answers);
    parts_.glyphs.onPrepared = tellingOf(Source::glyphs);
    subscriptions_.push_back(
        parts_.runningScripts.changed.connect([this] { notify_(News::runningScripts); }));
    subscriptions_.push_back(parts_.settings.changed.connect([this] {
        configure();
        notify_(News::settings);
    }));
    subscriptions_.push_back(parts_.usage.changed.connect([this] { notify_(News::items); }));
}

std::function<void()> SourceUpdates::tellingOf(Source source) {
    return [this, &isKnown = knownSources_.at(static_cast<std::size_t>(source))] {
        notify_(std::exchange(isKnown, true) ? News::items : News::firstItems);
    };
}

void SourceUpdates::configure() {
    parts_.aliases.configure(parts_.settings.urlAliases.get());
    const auto wanted = parts_.settings.searchDirectories(parts_.bundles.standardFolders());
    if (wanted != parts_.indexer.directories()) {
        parts_.indexer.configure(wanted);
        parts_.indexer.rescan();
    }
}

void SourceUpdates::reindex(Pruning pruning) {
    prunesAfterScan_ = prunesAfterScan_ || pruning == Pruning::forgetMissing;
    parts_.indexer.rescan();
    parts_.scripts.rescan();
}

void SourceUpdates::applicationsChanged() {
    parts_.aliases.rescan(); // others may open their addresses by now
    if (std::exchange(prunesAfterScan_, false)) {
        pruneUsage();
    }
    tellingOf(Source::applications)();
}

void SourceUpdates::pruneUsage() {
    std::unordered_set<std::string> existing;
    for (const LaunchItem& item : parts_.indexer.items()->items()) {
        existing.insert(item.id);
    }
    // Only applications have been scanned in full: whatever else is missing may come back.
    parts_.usage.prune(existing, [](std::string_view id) { return !id.starts_with("app:"); });
}

} // namespace pello
