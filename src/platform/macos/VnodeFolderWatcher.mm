#include "platform/macos/VnodeFolderWatcher.h"

#include <dispatch/dispatch.h>

#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <utility>

namespace pello {

Subscription VnodeFolderWatcher::watch(const std::filesystem::path& folder,
                                       std::function<void()> changed) {
    const int descriptor = ::open(folder.c_str(), O_EVTONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return {};
    }
    dispatch_source_t source =
        dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<uintptr_t>(descriptor),
                               DISPATCH_VNODE_WRITE | DISPATCH_VNODE_DELETE | DISPATCH_VNODE_RENAME,
                               dispatch_get_main_queue());
    if (source == nullptr) {
        ::close(descriptor);
        return {};
    }
    // The handler may end its own watch, so it calls what it owns itself.
    const auto notify = std::make_shared<const std::function<void()>>(std::move(changed));
    dispatch_source_set_event_handler(source, ^{
      const auto kept = notify;
      (*kept)();
    });
    dispatch_source_set_cancel_handler(source, ^{
      ::close(descriptor);
    });
    dispatch_resume(source);
    return Subscription([source] { dispatch_source_cancel(source); });
}

} // namespace pello
