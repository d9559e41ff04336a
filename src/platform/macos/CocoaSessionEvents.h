#pragma once

#include "platform/SessionEvents.h"

#include <memory>

namespace pello {

/// The notifications of the shared workspace, and the application's of its screens.
class CocoaSessionEvents final : public SessionEvents {
public:
    CocoaSessionEvents();
    ~CocoaSessionEvents() override;
    CocoaSessionEvents(const CocoaSessionEvents&) = delete;
    CocoaSessionEvents& operator=(const CocoaSessionEvents&) = delete;

private:
    struct Observers;
    std::unique_ptr<Observers> observers_;
};

} // namespace pello
