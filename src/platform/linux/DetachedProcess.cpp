#include "platform/linux/DetachedProcess.h"

#include "platform/linux/ForkedProgram.h"

#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

//  this process ──fork── parent of a moment ──fork── the program
//       │                     │ writes the program's pid  │ new session, clean signals, streams
//       │ <─────── pid ───────┘ and ends                  │ execve
//       │ <─────── outcome: end of file, or errno ────────┘
//
// When the one in the middle ends, the program becomes the child of init. Between fork and execve
// only async-signal-safe calls are allowed, so everything is laid out before.

namespace pello {

namespace {

struct Pipe {
    std::array<int, 2> ends{-1, -1};

    [[nodiscard]] bool open() { return ::pipe2(ends.data(), O_CLOEXEC) == 0; }
    void closeReading() { closeEnd(0); }
    void closeWriting() { closeEnd(1); }
    void closeEnd(std::size_t end) {
        if (ends.at(end) >= 0) {
            ::close(std::exchange(ends.at(end), -1));
        }
    }
};

// From here to startDetached: between fork and execve.

[[noreturn]] void becomeProgram(const ExecLayout& layout, int outcome) {
    ::setsid();
    resetSignals();
    resetStandardStreams();
    endDescriptors(STDERR_FILENO + 1, DescriptorFate::closeOnExec);
    if (layout.enterFolder()) {
        layout.execute();
    }
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(outcome, &error, sizeof error);
    ::_exit(127);
}

[[noreturn]] void forkProgram(const ExecLayout& layout, int pidEnd, int outcome) {
    const pid_t pid = ::fork();
    if (pid == 0) {
        becomeProgram(layout, outcome);
    }
    const int error = errno;
    const std::array<int, 2> message{pid, pid < 0 ? error : 0};
    [[maybe_unused]] const ssize_t written = ::write(pidEnd, message.data(), sizeof message);
    ::_exit(0);
}

/// What the process in the middle reports: the program's pid, or an error.
StartedProcess awaitReport(pid_t middle, int pidEnd) {
    std::array<int, 2> message{-1, ECHILD};
    ssize_t length = 0;
    do {
        length = ::read(pidEnd, message.data(), sizeof message);
    } while (length < 0 && errno == EINTR);
    while (::waitpid(middle, nullptr, 0) < 0 && errno == EINTR) {
    }
    return {.pid = message[0], .error = message[1], .outcome = -1};
}

} // namespace

StartedProcess startDetached(const ProcessPlan& plan) {
    const ExecLayout layout(plan);
    Pipe report;
    Pipe outcome;
    StartedProcess started;
    if (report.open() && outcome.open()) {
        pid_t middle = -1;
        {
            const SignalsBlocked blocked;
            middle = ::fork();
            if (middle == 0) {
                forkProgram(layout, report.ends[1], outcome.ends[1]);
            }
            started.error = errno;
        }
        report.closeWriting();
        outcome.closeWriting();
        if (middle > 0) {
            started = awaitReport(middle, report.ends[0]);
        }
    } else {
        started.error = errno;
    }
    if (started.pid > 0) {
        started.outcome = std::exchange(outcome.ends[0], -1);
    }
    for (Pipe* pipe : {&report, &outcome}) {
        pipe->closeReading();
        pipe->closeWriting();
    }
    return started;
}

} // namespace pello
