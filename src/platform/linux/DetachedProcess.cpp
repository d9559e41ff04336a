#include "platform/linux/DetachedProcess.h"

#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
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

/// What execve takes, pointing into a plan.
struct Layout {
    explicit Layout(const ProcessPlan& plan)
        : program(plan.program.c_str()), folder(plan.folder.c_str()) {
        for (const auto& [name, value] : plan.environment.variables) {
            lines.push_back(name);
            lines.back().append("=").append(value);
        }
        arguments = pointers(plan.arguments);
        environment = pointers(lines);
    }

    static std::vector<char*> pointers(const std::vector<std::string>& strings) {
        std::vector<char*> found;
        found.reserve(strings.size() + 1);
        for (const std::string& text : strings) {
            found.push_back(const_cast<char*>(text.c_str())); // execve does not write to them
        }
        found.push_back(nullptr);
        return found;
    }

    const char* program;
    const char* folder;
    std::vector<std::string> lines;
    std::vector<char*> arguments;
    std::vector<char*> environment;
};

// From here to startDetached: between fork and execve.

void resetSignals() {
    struct sigaction standard{};
    standard.sa_handler = SIG_DFL;
    for (int signal = 1; signal < NSIG; ++signal) {
        ::sigaction(signal, &standard, nullptr);
    }
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

void resetDescriptors() {
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (nowhere >= 0) {
            ::dup2(nowhere, stream);
        }
    }
    if (::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC) == 0) {
        return;
    }
    constexpr int kMost = 65536; // a kernel before 5.11
    for (int descriptor = STDERR_FILENO + 1; descriptor < kMost; ++descriptor) {
        ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    }
}

[[noreturn]] void becomeProgram(const Layout& layout, int outcome) {
    ::setsid();
    resetSignals();
    resetDescriptors();
    if (::chdir(layout.folder) == 0) {
        ::execve(layout.program, layout.arguments.data(), layout.environment.data());
    }
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(outcome, &error, sizeof error);
    ::_exit(127);
}

[[noreturn]] void forkProgram(const Layout& layout, int pidEnd, int outcome) {
    const pid_t pid = ::fork();
    if (pid == 0) {
        becomeProgram(layout, outcome);
    }
    const int error = errno;
    const std::array<int, 2> message{pid, pid < 0 ? error : 0};
    [[maybe_unused]] const ssize_t written = ::write(pidEnd, message.data(), sizeof message);
    ::_exit(0);
}

/// Blocks every signal while it lives: no handler of this program may run in the child.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_{};
};

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
    const Layout layout(plan);
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
