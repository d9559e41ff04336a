#include "app/KeysCommand.h"

#include "app/HeadlessPlatform.h"
#include "app/KeyLine.h"
#include "app/QuitSignals.h"
#include "core/settings/PelloSettings.h"
#include "platform/linux/X11EventTap.h"
#include "platform/qt/QtMainLoop.h"

#include <QCoreApplication>

#include <array>
#include <iostream>
#include <string>

namespace pello {
namespace {

/// Whether the user's Caps Lock is a Hyper key, which it has to be listened to as.
bool isHyperOn() {
    HeadlessPlatform platform({});
    return PelloSettings(platform.defaults(), platform.loginItem()).capsLockIsHyper.get();
}

} // namespace

int run(const KeysCommand& /*command*/) {
    const TapRequest request{.isHyperOn = isHyperOn()};
    QuitSignals signals;
    int count = 1;
    std::string name = "pello";
    std::array<char*, 2> arguments = {name.data(), nullptr};
    const QCoreApplication application(count, arguments.data());
    signals.deliver([] { QCoreApplication::quit(); });
    QtMainLoop loop;
    X11EventTap tap(loop);
    const bool isListening = tap.install(request, [](const InputEvent& event) {
        std::cout << keyLine(event) << '\n' << std::flush; // whoever watches wants it now
        return false;
    });
    if (!isListening) {
        std::cerr << "pello: " << tap.obstacle().value_or("the keyboard cannot be listened to")
                  << '\n';
        return ExitStatus::kNothing;
    }
    std::cerr << "Press keys; Ctrl+C here ends.\n";
    const int status = QCoreApplication::exec();
    signals.stop();
    return status;
}

} // namespace pello
