#include "app/HeadlessPlatform.h"

#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryKeystrokes.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/qt/TerminalPasteboard.h"

#include <QCoreApplication>

#include <array>
#include <functional>
#include <iostream>
#include <string>
#include <utility>

namespace pello {
namespace {

std::unique_ptr<Pasteboard> makePasteboard(std::ostream* terminal) {
    if (terminal != nullptr) {
        return std::make_unique<TerminalPasteboard>(*terminal);
    }
    return std::make_unique<MemoryPasteboard>();
}

/// Nobody can be asked: what has to be confirmed is left undone, and the user is told.
class NoDialogs final : public Dialogs {
public:
    explicit NoDialogs(MainLoop& loop) : loop_(loop) {}

    void confirm(const Confirmation& question, std::function<void(Answer)> answered) override {
        std::cerr << "pello: \"" << question.title << "\" has to be confirmed in the panel\n";
        loop_.post([answered = std::move(answered)] { answered(Answer::cancelled); });
    }

private:
    MainLoop& loop_;
};

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
    NoDialogs dialogs{loop};
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
