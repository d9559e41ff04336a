#include "platform/linux/InotifyFolderWatcher.h"

#include <QSocketNotifier>
#include <sys/inotify.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

// Each watch stands at one kernel descriptor:
//
//   wanted   /home/ann/.local/share/applications
//   exists   /home/ann/.local                       <- stands here, awaiting "share"
//
// When "share" appears the watch moves on, and so on until it stands at the folder itself. When the
// folder goes, the watch moves back up. Several watches may stand at one descriptor.

namespace pello {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kGone = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT;
constexpr std::uint32_t kArrivals = IN_CREATE | IN_MOVED_TO;
constexpr std::uint32_t kChanges =
    kArrivals | IN_DELETE | IN_MOVED_FROM | IN_CLOSE_WRITE | IN_ATTRIB;

struct DeleteLater {
    void operator()(QSocketNotifier* notifier) const {
        notifier->setEnabled(false);
        notifier->deleteLater(); // it may be the one that is calling
    }
};

} // namespace

/// The kernel's queue and who waits for what in it. A notification may end watches, start others
/// and destroy the watcher.
class InotifyFolderWatcher::Kernel : public std::enable_shared_from_this<Kernel> {
public:
    Kernel() : queue_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        if (queue_ >= 0) {
            notifier_.reset(new QSocketNotifier(queue_, QSocketNotifier::Read));
            QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                             [this] { shared_from_this()->readQueue(); });
        }
    }

    ~Kernel() {
        notifier_.reset();
        if (queue_ >= 0) {
            ::close(queue_);
        }
    }

    Kernel(const Kernel&) = delete;
    Kernel& operator=(const Kernel&) = delete;

    /// The number of the new watch; nothing when there is nowhere to stand.
    std::optional<std::uint64_t> add(const fs::path& folder, std::function<void()> changed) {
        if (queue_ < 0 || !folder.is_absolute()) {
            return std::nullopt;
        }
        const std::uint64_t number = ++newest_;
        Watch& watch = watches_[number];
        watch.folder = plain(folder);
        watch.changed = std::move(changed);
        place(watch);
        if (watch.descriptor < 0) {
            watches_.erase(number);
            return std::nullopt;
        }
        return number;
    }

    void remove(std::uint64_t number) {
        const auto found = watches_.find(number);
        const int descriptor = found->second.descriptor;
        watches_.erase(found);
        releaseUnused(descriptor);
    }

private:
    struct Watch {
        fs::path folder;
        std::function<void()> changed;
        int descriptor = -1;
        std::string awaited; // what must appear there; empty at the folder itself
    };
    using Numbers = std::set<std::uint64_t>;

    /// Without a trailing separator.
    static fs::path plain(const fs::path& folder) {
        const fs::path normal = folder.lexically_normal();
        return normal.has_filename() ? normal : normal.parent_path();
    }

    /// Stands `watch` at its folder or at the nearest one on the way there.
    void place(Watch& watch) {
        constexpr int kAttempts = 8; // an entry that is no readable folder would be tried for ever
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            const int former = watch.descriptor;
            const fs::path stand = climb(watch);
            releaseUnused(former);
            std::error_code error;
            if (watch.awaited.empty() || !fs::is_directory(stand / watch.awaited, error)) {
                return;
            }
            // It appeared after it was missed and before anybody watched for it.
        }
    }

    /// Tries the folder and then its ancestors; the one at which `watch` now stands.
    fs::path climb(Watch& watch) const {
        watch.descriptor = -1;
        watch.awaited.clear();
        fs::path stand = watch.folder;
        while (true) {
            const std::uint32_t events = watch.awaited.empty() ? kChanges : kArrivals;
            watch.descriptor = ::inotify_add_watch(queue_, stand.c_str(),
                                                   events | kGone | IN_ONLYDIR | IN_MASK_ADD);
            const bool isFull = watch.descriptor < 0 && (errno == ENOSPC || errno == ENOMEM);
            if (watch.descriptor >= 0 || isFull || stand == stand.root_path()) {
                return stand;
            }
            watch.awaited = stand.filename().string();
            stand = stand.parent_path();
        }
    }

    void releaseUnused(int descriptor) const {
        for (const auto& [number, watch] : watches_) {
            if (watch.descriptor == descriptor) {
                return;
            }
        }
        if (descriptor >= 0) {
            ::inotify_rm_watch(queue_, descriptor);
        }
    }

    void readQueue() {
        alignas(inotify_event) std::array<char, 16384> buffer{};
        Numbers changed;
        Numbers displaced;
        ssize_t length = 0;
        while ((length = ::read(queue_, buffer.data(), buffer.size())) > 0) {
            for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
                inotify_event event{};
                std::memcpy(&event, buffer.data() + at, sizeof event);
                note(event, buffer.data() + at + sizeof event, changed, displaced);
                at += sizeof event + event.len;
            }
        }
        move(displaced, changed);
        tell(changed);
    }

    /// Sorts one event: who is to be told, and who has to look for a new place.
    void note(const inotify_event& event, const char* name, Numbers& changed,
              Numbers& displaced) const {
        const bool isLost = (event.mask & IN_Q_OVERFLOW) != 0;
        const bool isGone = (event.mask & (kGone | IN_IGNORED)) != 0;
        const std::string_view entry = event.len > 0 ? std::string_view(name) : std::string_view();
        for (const auto& [number, watch] : watches_) {
            if (!isLost && watch.descriptor != event.wd) {
                continue;
            }
            if (watch.awaited.empty()) {
                changed.insert(number);
            }
            if (isLost || isGone || (!watch.awaited.empty() && entry == watch.awaited)) {
                displaced.insert(number);
            }
        }
    }

    void move(const Numbers& displaced, Numbers& changed) {
        for (const std::uint64_t number : displaced) {
            Watch& watch = watches_.at(number);
            place(watch);
            if (watch.descriptor >= 0 && watch.awaited.empty()) {
                changed.insert(number);
            }
        }
    }

    void tell(const Numbers& changed) {
        for (const std::uint64_t number : changed) {
            if (const auto found = watches_.find(number); found != watches_.end()) {
                const auto notify = found->second.changed; // it may end its own watch
                notify();
            }
        }
    }

    int queue_;
    std::unique_ptr<QSocketNotifier, DeleteLater> notifier_;
    std::map<std::uint64_t, Watch> watches_;
    std::uint64_t newest_ = 0;
};

InotifyFolderWatcher::InotifyFolderWatcher() : kernel_(std::make_shared<Kernel>()) {}

InotifyFolderWatcher::~InotifyFolderWatcher() = default;

Subscription InotifyFolderWatcher::watch(const std::filesystem::path& folder,
                                         std::function<void()> changed) {
    const auto number = kernel_->add(folder, std::move(changed));
    if (!number) {
        return {};
    }
    return Subscription([weakKernel = std::weak_ptr(kernel_), number = *number] {
        if (const auto kernel = weakKernel.lock()) {
            kernel->remove(number);
        }
    });
}

} // namespace pello
