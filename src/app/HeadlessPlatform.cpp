#include "app/HeadlessPlatform.h"

#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryMainLoop.h"

#include <QCoreApplication>

#include <array>
#include <string>

namespace pello {

struct HeadlessPlatform::Adapters {
    explicit Adapters(LinuxServices::Session session) : services(loop, watcher, session) {}

    int argumentCount = 1;
    std::string name = "pello";
    std::array<char*, 2> arguments = {name.data(), nullptr};
    QCoreApplication application{argumentCount, arguments.data()};
    MemoryMainLoop loop{Date::ofSystemClock()};
    MemoryFolderWatcher watcher; // one command is over before anything changes
    LinuxServices services;
};

HeadlessPlatform::HeadlessPlatform(LinuxServices::Session session)
    : adapters_(std::make_unique<Adapters>(session)) {}
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
    adapters_->loop.setNow(Date::ofSystemClock());
    adapters_->loop.settle();
    QCoreApplication::processEvents(); // this is the main loop: nothing else turns the toolkit's
    adapters_->loop.settle();
}

} // namespace pello
