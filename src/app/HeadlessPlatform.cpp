#include "app/HeadlessPlatform.h"

#include "platform/memory/MemoryDialogs.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryKeystrokes.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/qt/TerminalPasteboard.h"

#include <QCoreApplication>

#include <array>
#include <string>

namespace pello {
namespace {

std::unique_ptr<Pasteboard> makePasteboard(std::ostream* terminal) {
    if (terminal != nullptr) {
        return std::make_unique<TerminalPasteboard>(*terminal);
    }
    return std::make_unique<MemoryPasteboard>();
}

} // namespace

struct HeadlessPlatform::Adapters {
    explicit Adapters(const Options& options)
        : stoppedAt(options.stoppedAt),
          pasteboard(makePasteboard(options.terminal)),
          services({.loop = loop,
                    .watcher = watcher,
                    .pasteboard = *pasteboard,
                    .keystrokes = keystrokes,
                    .dialogs = dialogs},
                   options.session) {
        keystrokes.outcome = Keystrokes::Outcome::impossible; // the user pastes
    }

    [[nodiscard]] Date now() const { return stoppedAt ? *stoppedAt : Date::ofSystemClock(); }

    int argumentCount = 1;
    std::string name = "pello";
    std::array<char*, 2> arguments = {name.data(), nullptr};
    QCoreApplication application{argumentCount, arguments.data()};
    std::optional<Date> stoppedAt;
    MemoryMainLoop loop{now()};
    MemoryFolderWatcher watcher; // one command is over before anything changes
    std::unique_ptr<Pasteboard> pasteboard;
    MemoryKeystrokes keystrokes;
    MemoryDialogs dialogs; // nobody to ask
    LinuxServices services;
};

HeadlessPlatform::HeadlessPlatform(const Options& options)
    : adapters_(std::make_unique<Adapters>(options)) {}
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
