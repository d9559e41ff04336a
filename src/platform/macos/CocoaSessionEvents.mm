#include "platform/macos/CocoaSessionEvents.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <utility>
#include <vector>

namespace pello {

struct CocoaSessionEvents::Observers {
    using Heard = std::function<void(NSNotification*)>;

    std::vector<std::pair<NSNotificationCenter*, id>> observers;
    // A notification may wait in the main queue while this object goes.
    std::shared_ptr<int> alive = std::make_shared<int>();

    Observers() = default;
    Observers(const Observers&) = delete;
    Observers& operator=(const Observers&) = delete;
    ~Observers() {
        for (const auto& [center, observer] : observers) {
            [center removeObserver:observer];
        }
    }

    void observe(NSNotificationCenter* center, NSNotificationName name, Heard heard) {
        const std::weak_ptr<int> weakAlive = alive;
        id observer = [center addObserverForName:name
                                          object:nil
                                           queue:NSOperationQueue.mainQueue
                                      usingBlock:^(NSNotification* notification) {
                                        if (!weakAlive.expired()) {
                                            heard(notification);
                                        }
                                      }];
        observers.emplace_back(center, observer);
    }
};

CocoaSessionEvents::CocoaSessionEvents() : observers_(std::make_unique<Observers>()) {
    for (NSNotificationName name in @[
             NSWorkspaceDidWakeNotification, NSWorkspaceScreensDidWakeNotification,
             NSWorkspaceSessionDidBecomeActiveNotification
         ]) {
        observers_->observe(NSWorkspace.sharedWorkspace.notificationCenter, name,
                            [this](NSNotification* heard) { resumed.emit(heard.name.UTF8String); });
    }
    observers_->observe(NSNotificationCenter.defaultCenter,
                        NSApplicationDidChangeScreenParametersNotification,
                        [this](NSNotification*) { resumed.emit(kScreensChanged); });
}

CocoaSessionEvents::~CocoaSessionEvents() = default;

} // namespace pello
