#include "platform/linux/PlistUserDefaults.h"

#include "platform/linux/AtomicFile.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <mutex>

// At most one worker is under way:
//
//           set                turn ends                    worker is done
//   idle ─────────► scheduled ───────────► busy ─┬─ well ──► idle, or scheduled again when
//                       ▲                        │           something came in between
//                       └── folder changed       └─ refused ► pending again, until the next set
//
// `flush` cannot wait for a worker's answer, which needs the main loop. It takes everything back,
// passes the turnstile after the worker that may be at the disk just now, and writes by itself;
// a worker that comes later finds that its turn is over.

namespace pello {

struct PlistUserDefaults::Turnstile {
    std::mutex mutex;
    std::uint64_t lastNumber = 0;

    SyncOutcome pass(std::uint64_t number, const SyncRequest& request) {
        const std::lock_guard lock(mutex);
        if (number < lastNumber) {
            return {};
        }
        lastNumber = number;
        return syncDefaults(request);
    }
};

PlistUserDefaults::PlistUserDefaults(std::filesystem::path file, MainLoop& loop,
                                     FolderWatcher& watcher, Log& log)
    : file_(std::move(file)),
      loop_(loop),
      watcher_(watcher),
      log_(log),
      turnstile_(std::make_shared<Turnstile>()) {
    [[maybe_unused]] const auto failure = // the first write will complain
        makePrivateFolder(file_.parent_path());
    watchFolders(); // before reading, so that no change falls in between
    const SyncOutcome outcome = openDefaults(file_, loop_.now());
    stamp_ = outcome.stamp;
    onDisk_ = outcome.contents.value_or(PropertyDictionary{});
    stored_ = onDisk_;
    notePutAside(outcome);
    noteRefusal(outcome.failure);
    if (!untold_.empty()) {
        // Nobody can be listening yet.
        loop_.post(turns_.wrap(std::function<void()>([this] { tell({}); })));
    }
}

PlistUserDefaults::~PlistUserDefaults() {
    watches_.clear();
    flush();
}

std::optional<PropertyValue> PlistUserDefaults::value(std::string_view key) const {
    for (const PropertyDictionary* values : {&stored_, &registered_}) {
        if (const auto found = values->find(key); found != values->end()) {
            return found->second;
        }
    }
    return std::nullopt;
}

void PlistUserDefaults::set(std::string_view key, PropertyValue value) {
    const auto found = stored_.find(key);
    if (found != stored_.end() && found->second == value) {
        return;
    }
    stored_.insert_or_assign(std::string(key), value);
    change(key, std::move(value));
}

void PlistUserDefaults::remove(std::string_view key) {
    if (const auto found = stored_.find(key); found != stored_.end()) {
        stored_.erase(found);
        change(key, std::nullopt);
    }
}

void PlistUserDefaults::registerDefaults(PropertyDictionary defaults) {
    for (auto& [key, value] : defaults) {
        registered_.insert_or_assign(key, std::move(value));
    }
}

std::vector<std::string> PlistUserDefaults::storedKeys() const {
    std::vector<std::string> keys;
    std::transform(stored_.begin(), stored_.end(), std::back_inserter(keys),
                   [](const auto& entry) { return entry.first; });
    return keys;
}

bool PlistUserDefaults::flush() {
    syncs_.cancel();
    isBusy_ = false;
    pending_ = joined(std::exchange(underWay_, {}), pending_);
    mayWrite_ = true;
    SyncOutcome outcome = turnstile_->pass(++number_, nextRequest());
    const bool isDone = outcome.failure.empty();
    finishSync(std::move(outcome));
    return isDone;
}

void PlistUserDefaults::change(std::string_view key, std::optional<PropertyValue> value) {
    pending_.insert_or_assign(std::string(key), std::move(value));
    mayWrite_ = true;
    scheduleSync();
}

void PlistUserDefaults::watchFolders() {
    const auto folder = file_.parent_path();
    watches_.push_back(watcher_.watch(folder, [this] { scheduleSync(); }));
    const auto linkedFolder = followingLinks(file_).parent_path();
    if (linkedFolder != folder) {
        watches_.push_back(watcher_.watch(linkedFolder, [this] { scheduleSync(); }));
    }
}

void PlistUserDefaults::scheduleSync() {
    if (!std::exchange(isScheduled_, true) && !isBusy_) {
        loop_.post(turns_.wrap(std::function<void()>([this] { startSync(); })));
    }
}

void PlistUserDefaults::startSync() {
    if (isBusy_ || !std::exchange(isScheduled_, false)) {
        return;
    }
    isBusy_ = true;
    loop_.background([turnstile = turnstile_, number = ++number_,
                      request = nextRequest()] { return turnstile->pass(number, request); },
                     syncs_.wrap(std::function<void(SyncOutcome)>(
                         [this](SyncOutcome outcome) { finishSync(std::move(outcome)); })));
}

SyncRequest PlistUserDefaults::nextRequest() {
    SyncRequest request{
        .file = file_, .changes = {}, .known = {}, .stamp = stamp_, .now = loop_.now()};
    if (std::exchange(mayWrite_, false) && !pending_.empty()) {
        underWay_ = std::exchange(pending_, {});
        request.changes = underWay_;
        request.known = stored_;
    }
    return request;
}

void PlistUserDefaults::finishSync(SyncOutcome outcome) {
    isBusy_ = false;
    const DefaultsChanges written = std::exchange(underWay_, {});
    std::vector<std::string> changedKeys;
    notePutAside(outcome);
    if (!outcome.failure.empty()) {
        noteRefusal(outcome.failure);
        pending_ = joined(written, pending_);
    } else if (!written.empty()) {
        isRefusalKnown_ = false;
    }
    if (outcome.contents) {
        stamp_ = outcome.stamp;
        changedKeys = adopt(std::move(*outcome.contents), written);
    }
    if (std::exchange(isScheduled_, false)) {
        scheduleSync();
    }
    tell(changedKeys);
}

/// Takes over what the file holds where it is not this process that changed it. Gives those keys.
std::vector<std::string> PlistUserDefaults::adopt(PropertyDictionary contents,
                                                  const DefaultsChanges& written) {
    std::vector<std::string> keys;
    DefaultsChanges foreign = differences(onDisk_, contents);
    std::erase_if(foreign, [&](const auto& entry) {
        return written.contains(entry.first) || pending_.contains(entry.first);
    });
    applyChanges(foreign, stored_);
    std::transform(foreign.begin(), foreign.end(), std::back_inserter(keys),
                   [](const auto& entry) { return entry.first; });
    onDisk_ = std::move(contents);
    return keys;
}

void PlistUserDefaults::notePutAside(const SyncOutcome& outcome) {
    if (outcome.putAside) {
        untold_.push_back("The settings file could not be read. It was put aside as " +
                          outcome.putAside->string() + ".");
    }
}

void PlistUserDefaults::noteRefusal(const std::string& failure) {
    if (!failure.empty() && !std::exchange(isRefusalKnown_, true)) {
        untold_.push_back(failure);
    }
}

/// Tells the listeners, as the last thing: they may change anything.
void PlistUserDefaults::tell(const std::vector<std::string>& changedKeys) {
    for (const std::string& sentence : std::exchange(untold_, {})) {
        log_.write(LogCategory::panel, LogLevel::error, sentence);
        problem.emit(sentence);
    }
    if (!changedKeys.empty()) {
        changedElsewhere.emit(changedKeys);
    }
}

} // namespace pello
