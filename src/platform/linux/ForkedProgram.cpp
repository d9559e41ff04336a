#include "platform/linux/ForkedProgram.h"

#include <fcntl.h>
#include <unistd.h>

namespace pello {
namespace {

std::vector<char*> pointers(const std::vector<std::string>& strings) {
    std::vector<char*> found;
    found.reserve(strings.size() + 1);
    for (const std::string& text : strings) {
        found.push_back(const_cast<char*>(text.c_str())); // execve does not write to them
    }
    found.push_back(nullptr);
    return found;
}

std::vector<std::string> environmentLines(const Environment& environment) {
    std::vector<std::string> lines;
    for (const auto& [name, value] : environment.variables) {
        lines.push_back(name);
        lines.back().append("=").append(value);
    }
    return lines;
}

} // namespace

ExecLayout::ExecLayout(const ProcessPlan& plan)
    : program_(plan.program.c_str()),
      folder_(plan.folder.c_str()),
      lines_(environmentLines(plan.environment)),
      arguments_(pointers(plan.arguments)),
      environment_(pointers(lines_)) {}

bool ExecLayout::enterFolder() const {
    return ::chdir(folder_) == 0;
}

void ExecLayout::execute() const {
    ::execve(program_, arguments_.data(), environment_.data());
}

SignalsBlocked::SignalsBlocked() {
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before_);
}

SignalsBlocked::~SignalsBlocked() {
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

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

void resetStandardStreams() {
    const int nowhere = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (nowhere >= 0) {
            ::dup2(nowhere, stream);
        }
    }
    if (nowhere > STDERR_FILENO) {
        ::close(nowhere);
    }
}

void endDescriptors(int first, DescriptorFate fate) {
    const int flags = fate == DescriptorFate::closeOnExec ? CLOSE_RANGE_CLOEXEC : 0;
    if (::close_range(static_cast<unsigned>(first), ~0U, flags) == 0) {
        return;
    }
    constexpr int kMost = 65536; // a kernel before 5.11
    for (int descriptor = first; descriptor < kMost; ++descriptor) {
        if (fate == DescriptorFate::closeOnExec) {
            ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
        } else {
            ::close(descriptor);
        }
    }
}

} // namespace pello
