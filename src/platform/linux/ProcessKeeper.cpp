#include "platform/linux/ProcessKeeper.h"

#include "platform/linux/ForkedProgram.h"
#include "platform/linux/KeeperReport.h"
#include "platform/linux/OutputTail.h"

#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

//  this process ──fork── parent of a moment ──fork── keeper ──fork── the program
//       │                     ends at once             │  <── output ──┤
//       │ <──────────── line: requests, report ──────> │  <── end ─────┘
//                                                      │  <── output ── what it left behind
//
// Pipes that nobody reads fill up and block their writer, and ones that nobody can read kill it. So
// somebody has to read what a program prints for as long as it or a process that it left behind
// has the pipe open: longer than this process may live, however it ends. The keeper does nothing
// else, and stays a fork of this process: all that it needs are plain system calls, which are
// allowed there, and the memory that it does not touch is shared.

namespace pello {
namespace {

/// Where the keeper has its line; everything above is closed.
constexpr int kLine = STDERR_FILENO + 1;
/// How long a program's end is not reported while its streams are still open: other ends of a pipe
/// line may have something to say.
constexpr int kPatience = 200; // milliseconds

int milliseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    constexpr int kWrapsAt = 1'000'000; // seconds; a time is only compared with a recent one
    return static_cast<int>(now.tv_sec % kWrapsAt) * 1000 + static_cast<int>(now.tv_nsec / 1000000);
}

void closeNumber(int& descriptor) {
    if (descriptor >= 0) {
        ::close(std::exchange(descriptor, -1));
    }
}

/// One stream of the program's, on its way to a tail.
struct Stream {
    int descriptor = -1;
    OutputTail tail;

    /// Reads once; closes the stream at its end. Gives how many bytes there were.
    std::size_t read() {
        std::array<char, 4096> nowhere{};
        const auto space = tail.space();
        const auto target = space.empty() ? OutputTail::Piece(nowhere) : space;
        const ssize_t length = ::read(descriptor, target.data(), target.size());
        if (length <= 0) {
            if (length == 0 || (errno != EINTR && errno != EAGAIN)) {
                closeNumber(descriptor);
            }
            return 0;
        }
        const auto count = static_cast<std::size_t>(length);
        if (!space.empty()) {
            tail.added(count);
        }
        return count;
    }

    /// Reads what there is at this moment, and nothing that comes meanwhile.
    void readPresent() {
        int present = 0;
        if (descriptor < 0 || ::ioctl(descriptor, FIONREAD, &present) != 0) {
            return;
        }
        while (present > 0 && descriptor >= 0) {
            present -= static_cast<int>(read());
        }
    }
};

/// The life of a keeper, from its fork to its end.
class Keeper {
public:
    explicit Keeper(const ExecLayout& layout) : layout_(layout) {}

    [[noreturn]] void live() {
        if (startProgram()) {
            keepReading();
        }
        ::_exit(0);
    }

private:
    /// What a program that could not be started leaves in the pipe to its keeper.
    struct Obstacle {
        KeeperReport::Outcome outcome;
        std::int32_t error;
    };

    bool startProgram();
    [[noreturn]] void becomeProgram(int out, int error, int obstacles);
    bool awaitStart(int obstacles);
    static void ignoreSignals();
    [[nodiscard]] int longestWait() const;
    void keepReading();
    void wait();
    void takeRequests();
    void noticeEnd();
    [[nodiscard]] bool isTimeToReport() const;
    void report();
    void sendReport();
    void send(OutputTail::Piece bytes);

    const ExecLayout& layout_;
    pid_t program_ = -1;
    int end_ = -1; // becomes readable when the program has ended
    int line_ = kLine;
    bool hasEnded_ = false;
    bool hasReported_ = false;
    int endedAt_ = 0; // in `milliseconds`
    KeeperReport report_;
    Stream standard_;
    Stream error_;
};

bool Keeper::startProgram() {
    std::array<int, 2> standard{-1, -1};
    std::array<int, 2> error{-1, -1};
    std::array<int, 2> obstacles{-1, -1};
    if (::pipe2(standard.data(), O_CLOEXEC) == 0 && ::pipe2(error.data(), O_CLOEXEC) == 0 &&
        ::pipe2(obstacles.data(), O_CLOEXEC) == 0) {
        report_.outcome = KeeperReport::Outcome::starting;
        sendReport();
        report_ = KeeperReport();
        program_ = ::fork();
    }
    if (program_ == 0) {
        becomeProgram(standard[1], error[1], obstacles[1]);
    }
    report_.value = errno;
    closeNumber(standard[1]);
    closeNumber(error[1]);
    closeNumber(obstacles[1]);
    standard_.descriptor = standard[0];
    error_.descriptor = error[0];
    ignoreSignals();
    if (program_ > 0 && awaitStart(obstacles[0])) {
        end_ = static_cast<int>(::syscall(SYS_pidfd_open, program_, 0));
        return true;
    }
    report();
    return false;
}

void Keeper::becomeProgram(int out, int error, int obstacles) {
    ::setsid();
    ::dup2(out, STDOUT_FILENO);
    ::dup2(error, STDERR_FILENO);
    endDescriptors(STDERR_FILENO + 1, DescriptorFate::closeOnExec);
    resetSignals();
    Obstacle obstacle{.outcome = KeeperReport::Outcome::noFolder, .error = 0};
    if (layout_.enterFolder()) {
        obstacle.outcome = KeeperReport::Outcome::noProgram;
        layout_.execute();
    }
    obstacle.error = errno;
    [[maybe_unused]] const ssize_t written = ::write(obstacles, &obstacle, sizeof obstacle);
    ::_exit(127);
}

/// Waits until the program runs. When it cannot, prepares the report and gives false.
bool Keeper::awaitStart(int obstacles) {
    Obstacle obstacle{};
    ssize_t length = 0;
    do {
        length = ::read(obstacles, &obstacle, sizeof obstacle);
    } while (length < 0 && errno == EINTR);
    ::close(obstacles);
    if (length != sizeof obstacle) {
        return true;
    }
    report_.outcome = obstacle.outcome;
    report_.value = obstacle.error;
    while (::waitpid(program_, nullptr, 0) < 0 && errno == EINTR) {
    }
    return false;
}

/// The keeper is there for the program and ends with it, not by what is sent to everything that
/// looks like this one.
void Keeper::ignoreSignals() {
    resetSignals();
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGUSR1, SIGUSR2}) {
        ::signal(signal, SIG_IGN);
    }
}

void Keeper::keepReading() {
    while (!hasReported_ || standard_.descriptor >= 0 || error_.descriptor >= 0) {
        wait();
        if (!hasReported_ && isTimeToReport()) {
            report();
        }
    }
}

/// In milliseconds, as `poll` takes it.
int Keeper::longestWait() const {
    constexpr int kForEver = -1;
    constexpr int kLookAgain = 50; // where the system cannot tell of an end
    if (hasReported_) {
        return kForEver;
    }
    if (hasEnded_) {
        return kPatience;
    }
    return end_ < 0 ? kLookAgain : kForEver;
}

void Keeper::wait() {
    std::array<pollfd, 4> events{{{.fd = standard_.descriptor, .events = POLLIN},
                                  {.fd = error_.descriptor, .events = POLLIN},
                                  {.fd = line_, .events = POLLIN},
                                  {.fd = hasEnded_ ? -1 : end_, .events = POLLIN}}};
    if (::poll(events.data(), events.size(), longestWait()) < 0) {
        return;
    }
    if (events[0].revents != 0) {
        standard_.read();
    }
    if (events[1].revents != 0) {
        error_.read();
    }
    if (events[2].revents != 0) {
        takeRequests();
    }
    if (!hasEnded_ && (events[3].revents != 0 || end_ < 0)) {
        noticeEnd();
    }
}

void Keeper::takeRequests() {
    char request = 0;
    const ssize_t length = ::recv(line_, &request, 1, MSG_DONTWAIT);
    if (length == 0 || (length < 0 && errno != EINTR && errno != EAGAIN)) {
        closeNumber(line_);
    } else if (length == 1 && !hasEnded_) { // until then, the group's number is taken
        ::kill(-program_, request == static_cast<char>(KeeperRequest::kill) ? SIGKILL : SIGTERM);
    }
}

void Keeper::noticeEnd() {
    int status = 0;
    const pid_t ended = ::waitpid(program_, &status, WNOHANG);
    if (ended != program_ && (ended == 0 || errno == EINTR)) {
        return;
    }
    hasEnded_ = true;
    endedAt_ = milliseconds();
    if (ended != program_) {
        report_ = {.outcome = KeeperReport::Outcome::lost};
        return;
    }
    const bool isSignalled = WIFSIGNALED(status);
    report_.outcome =
        isSignalled ? KeeperReport::Outcome::signalled : KeeperReport::Outcome::exited;
    report_.value = isSignalled ? WTERMSIG(status) : WEXITSTATUS(status);
}

bool Keeper::isTimeToReport() const {
    const bool isSilent = standard_.descriptor < 0 && error_.descriptor < 0;
    const int elapsed = milliseconds() - endedAt_;
    return hasEnded_ && (isSilent || elapsed >= kPatience || elapsed < 0);
}

void Keeper::report() {
    hasReported_ = true;
    standard_.readPresent();
    error_.readPresent();
    report_.standardLength = standard_.tail.size();
    report_.errorLength = error_.tail.size();
    sendReport();
    for (const Stream* stream : {&standard_, &error_}) {
        for (const auto piece : stream->tail.pieces()) {
            send(piece);
        }
    }
    closeNumber(line_);
    standard_.tail.forget();
    error_.tail.forget();
}

void Keeper::sendReport() {
    std::array<char, sizeof report_> head{};
    __builtin_memcpy(head.data(), &report_, sizeof report_);
    send(head);
}

/// Nobody may listen any more; the keeper goes on then.
void Keeper::send(OutputTail::Piece bytes) {
    while (line_ >= 0 && !bytes.empty()) {
        const ssize_t length = ::send(line_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (length >= 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(length));
        } else if (errno != EINTR) {
            closeNumber(line_);
        }
    }
}

/// Leaves behind what is not the keeper's business: everything that this process has open.
void becomeKeeper(int line) {
    ::setsid();
    ::signal(SIGCHLD, SIG_DFL); // where it is ignored, nobody is told how a child ends
    ::prctl(PR_SET_NAME, "pello-keeper");
    ::dup2(line, kLine);
    resetStandardStreams();
    endDescriptors(kLine + 1, DescriptorFate::closeNow);
    ::fcntl(kLine, F_SETFD, FD_CLOEXEC);
    [[maybe_unused]] const int elsewhere = ::chdir("/");
}

/// Makes the keeper by way of a process that ends at once; gives an error number, 0 for none.
int forkKeeper(const ExecLayout& layout, int line) {
    const SignalsBlocked blocked;
    const pid_t middle = ::fork();
    if (middle < 0) {
        return errno;
    }
    if (middle == 0) {
        const pid_t keeper = ::fork();
        if (keeper == 0) {
            becomeKeeper(line);
            Keeper(layout).live();
        }
        ::_exit(keeper < 0 ? errno : 0);
    }
    int status = 0;
    while (::waitpid(middle, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : ECHILD;
}

} // namespace

KeptProcess startKept(const ProcessPlan& plan) {
    const ExecLayout layout(plan);
    std::array<int, 2> ends{-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return {.line = FileDescriptor(), .error = errno};
    }
    FileDescriptor line(ends[0]);
    const FileDescriptor keepersEnd(ends[1]);
    ::fcntl(line.number(), F_SETFL, O_NONBLOCK);
    if (const int error = forkKeeper(layout, keepersEnd.number()); error != 0) {
        return {.line = FileDescriptor(), .error = error};
    }
    return {.line = std::move(line)};
}

} // namespace pello
