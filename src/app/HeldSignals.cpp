#include "app/HeldSignals.h"

#include <sys/signalfd.h>

#include <csignal>
#include <unistd.h>
#include <utility>

namespace pello {
namespace {

sigset_t setOf(const std::vector<int>& signals) {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : signals) {
        sigaddset(&set, signal);
    }
    return set;
}

int blockedAndReadable(const std::vector<int>& signals) {
    const sigset_t set = setOf(signals);
    ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
    return ::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
}

} // namespace

HeldSignals::HeldSignals(std::initializer_list<int> signals)
    : signals_(signals), descriptor_(blockedAndReadable(signals_)) {}

void HeldSignals::deliver(std::function<void()> come) {
    if (descriptor_ < 0) {
        return;
    }
    notifier_.emplace(descriptor_, QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_,
                     [this, come = std::move(come)] {
                         signalfd_siginfo received = {};
                         while (::read(descriptor_, &received, sizeof received) > 0) {
                             come();
                         }
                     });
}

HeldSignals::~HeldSignals() {
    notifier_.reset();
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
    const sigset_t set = setOf(signals_);
    ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace pello
