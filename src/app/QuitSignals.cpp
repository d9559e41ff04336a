#include "app/QuitSignals.h"

#include <sys/signalfd.h>

#include <csignal>
#include <unistd.h>
#include <utility>

namespace pello {
namespace {

sigset_t quitSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        sigaddset(&signals, signal);
    }
    return signals;
}

int blockedAndReadable() {
    const sigset_t signals = quitSignals();
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return ::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

} // namespace

QuitSignals::QuitSignals() : descriptor_(blockedAndReadable()) {}

void QuitSignals::deliver(std::function<void()> quit) {
    if (descriptor_ < 0) {
        return;
    }
    notifier_.emplace(descriptor_, QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_,
                     [this, quit = std::move(quit)] {
                         signalfd_siginfo received = {};
                         while (::read(descriptor_, &received, sizeof received) > 0) {
                             quit();
                         }
                     });
}

QuitSignals::~QuitSignals() {
    notifier_.reset();
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
    const sigset_t signals = quitSignals();
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

} // namespace pello
