#include "app/TerminalRescue.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstddef>
#include <termios.h>
#include <unistd.h>

namespace pello {
namespace {

constexpr std::array kCrashes = {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT};

/// What the handler needs, in a place that it may read.
struct Rescue {
    termios modes = {};
    bool hasModes = false;
    std::array<char, 256> sequence = {};
    std::size_t length = 0;
};

Rescue& rescue() {
    static Rescue only; // a signal handler has no other way to reach anything
    return only;
}

/// Calls only what is safe in a handler. The signal takes its usual course afterwards.
void giveBack(int signal) {
    const Rescue& kept = rescue();
    [[maybe_unused]] const ssize_t written =
        ::write(STDOUT_FILENO, kept.sequence.data(), kept.length);
    if (kept.hasModes) {
        ::tcsetattr(STDIN_FILENO, TCSANOW, &kept.modes);
    }
    ::raise(signal);
}

} // namespace

TerminalRescue::TerminalRescue() {
    rescue().hasModes = ::tcgetattr(STDIN_FILENO, &rescue().modes) == 0;
}

void TerminalRescue::arm(const std::string& leavingSequence) {
    Rescue& kept = rescue();
    kept.length = std::min(leavingSequence.size(), kept.sequence.size());
    std::copy_n(leavingSequence.begin(), kept.length, kept.sequence.begin());
    struct sigaction action = {};
    action.sa_handler = giveBack;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : kCrashes) {
        ::sigaction(signal, &action, nullptr);
    }
}

TerminalRescue::~TerminalRescue() {
    for (const int signal : kCrashes) {
        static_cast<void>(std::signal(signal, SIG_DFL));
    }
}

} // namespace pello
