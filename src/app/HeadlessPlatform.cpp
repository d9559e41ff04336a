#include "app/HeadlessPlatform.h"

#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryPasteboard.h"

#include <QCoreApplication>

#include <array>
#include <string>

namespace pello {

struct HeadlessPlatform::Adapters {
    Adapters(LinuxServices::Session session, std::optional<Date> stopped)
        : stoppedAt(stopped), services(loop, watcher, pasteboard, session) {}

    [[nodiscard]] Date now() const { return stoppedAt ? *stoppedAt : Date::ofSystemClock(); }

    int argumentCount = 1;
    std::string name = "pello";
    std::array<char*, 2> arguments = {name.data(), nullptr};
    QCoreApplication application{argumentCount, arguments.data()};
    std::optional<Date> stoppedAt;
    MemoryMainLoop loop{now()};
    MemoryFolderWatcher watcher; // one command is over before anything changes
    MemoryPasteboard pasteboard;
    LinuxServices services;
};

HeadlessPlatform::HeadlessPlatform(LinuxServices::Session session, std::optional<Date> stoppedAt)
    : adapters_(std::make_unique<Adapters>(session, stoppedAt)) {}
HeadlessPlatform::~HeadlessPlatform() = default;

Platform HeadlessPlatform::ports() {
    return adapters_->services.ports();
}

UserDefaults& HeadlessPlatform::defaults() {
    return adapters_->services.defaults;
}

LoginItem& HeadlessPlatform::loginItem() {
    return adapters_->services.loginItem;
}

void HeadlessPlatform::turn() {
    adapters_->loop.setNow(adapters_->now());
    adapters_->loop.settle();
    QCoreApplication::processEvents(); // this is the main loop: nothing else turns the toolkit's
    adapters_->loop.settle();
}

} // namespace pello
