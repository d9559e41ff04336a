#include "platform/macos/SpawnedProcesses.h"

#include "base/Text.h"
#include "platform/posix/ExecFailure.h"

#import <Foundation/Foundation.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string_view>
#include <utility>

// A program may outlive this one and still print. A pipe that nobody can read would kill it then,
// and one that nobody does read would hold it up. So its output goes to files, which take it at any
// time; they have no name any more, and go with the last process that has them open.

namespace pello {
namespace {

using End = decltype(ProcessResult::end);

/// Where a program prints. Both are appended to, so that looking at their ends disturbs nobody.
struct Output {
    NSFileHandle* standard;
    NSFileHandle* error;
};

/// A file that is nowhere else; nil, with `errno` set, when there can be none.
NSFileHandle* namelessFile() {
    NSString* pattern = [NSTemporaryDirectory() stringByAppendingPathComponent:@"pello.XXXXXX"];
    std::string path = pattern.fileSystemRepresentation;
    const int descriptor = ::mkostemp(path.data(), O_APPEND | O_CLOEXEC);
    if (descriptor < 0) {
        return nil;
    }
    ::unlink(path.c_str());
    return [[NSFileHandle alloc] initWithFileDescriptor:descriptor closeOnDealloc:YES];
}

std::string tailOf(NSFileHandle* file) {
    constexpr off_t kMost = ProcessResult::kMostOutput;
    const off_t size = std::max<off_t>(::lseek(file.fileDescriptor, 0, SEEK_END), 0);
    std::string tail(static_cast<std::size_t>(std::min(size, kMost)), '\0');
    const ssize_t length =
        ::pread(file.fileDescriptor, tail.data(), tail.size(), std::max<off_t>(size - kMost, 0));
    tail.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    return tail;
}

std::vector<std::string> argumentsOf(const Processes::Program& program) {
    std::vector<std::string> arguments = program.arguments;
    arguments.insert(arguments.begin(),
                     program.calledAs.empty() ? program.file.string() : program.calledAs);
    return arguments;
}

std::vector<std::string> linesOf(const EnvironmentVariables& variables) {
    std::vector<std::string> lines;
    for (const auto& [name, value] : variables) {
        lines.push_back(name + "=" + value);
    }
    return lines;
}

/// `texts` as the system takes them, alive as long as they are.
std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> found;
    for (std::string& text : texts) {
        found.push_back(text.data());
    }
    found.push_back(nullptr);
    return found;
}

/// A session of its own, nothing open but the streams, and no signal blocked or ignored.
void setAttributes(posix_spawnattr_t& attributes) {
    sigset_t signals{};
    sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    sigdelset(&signals, SIGKILL);
    sigdelset(&signals, SIGSTOP);
    ::posix_spawnattr_setsigdefault(&attributes, &signals);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_CLOEXEC_DEFAULT |
                                                POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
}

/// Starts `program`, and says which process it is. Gives an error number, 0 for none.
int spawn(const Processes::Program& program, const Output& output, pid_t& process) {
    auto arguments = argumentsOf(program);
    auto variables = linesOf(program.environment);
    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions, output.standard.fileDescriptor, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, output.error.fileDescriptor, STDERR_FILENO);
    ::posix_spawn_file_actions_addchdir_np(&actions, program.folder.c_str());
    setAttributes(attributes);
    const int error = ::posix_spawn(&process, program.file.c_str(), &actions, &attributes,
                                    pointers(arguments).data(), pointers(variables).data());
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    return error;
}

/// Whether the system would see the end of a text before its end.
bool hasZero(const Processes::Program& program) {
    const auto isCut = [](std::string_view text) {
        return text.find('\0') != std::string_view::npos;
    };
    return isCut(program.file.native()) || isCut(program.folder.native()) ||
           std::ranges::any_of(program.arguments, isCut) ||
           std::ranges::any_of(program.environment, [&](const auto& variable) {
               return isCut(variable.first) || isCut(variable.second);
           });
}

/// The system gives one number for whatever failed.
std::string whyNotSpawned(const Processes::Program& program, int error) {
    const bool canEnter = ::access((program.folder / ".").c_str(), X_OK) == 0;
    return canEnter ? whyNotExecuted(program.file, error) : whyNotEntered(program.folder);
}

/// Starts `program`; the process, or why there is none.
std::variant<pid_t, std::string> started(const Processes::Program& program, Output& output) {
    if (hasZero(program)) {
        return "its argument contains a zero byte, which none can";
    }
    output.standard = namelessFile();
    output.error = output.standard != nil ? namelessFile() : nil;
    if (output.error == nil) {
        return inTheSystemsWords(errno);
    }
    pid_t process = 0;
    const int error = spawn(program, output, process);
    return error == 0 ? std::variant<pid_t, std::string>(process) : whyNotSpawned(program, error);
}

/// How `process` ended, which it has; its number is free for others then.
End reap(pid_t process) {
    int status = 0;
    pid_t found = -1;
    do {
        found = ::waitpid(process, &status, 0);
    } while (found < 0 && errno == EINTR);
    if (found != process) {
        return ProcessResult::Unknown{"the system did not tell"};
    }
    if (!WIFSIGNALED(status)) {
        return ProcessResult::Exited{WEXITSTATUS(status)};
    }
    const int number = WTERMSIG(status);
    const bool isKnown = number > 0 && number < NSIG;
    return ProcessResult::Signalled{.number = number,
                                    .name = isKnown
                                                ? "SIG" + text::uppercased(::sys_signame[number])
                                                : "signal " + std::to_string(number)};
}

/// Calls `ended` when `process` has ended, in a later turn of the loop.
void whenEnded(pid_t process, std::function<void(const End& end)> ended) {
    dispatch_source_t source =
        dispatch_source_create(DISPATCH_SOURCE_TYPE_PROC, static_cast<uintptr_t>(process),
                               DISPATCH_PROC_EXIT, dispatch_get_main_queue());
    dispatch_source_set_event_handler(source, ^{
      dispatch_source_cancel(source); // which held itself until now
      ended(reap(process));
    });
    dispatch_resume(source);
}

} // namespace

Processes::Handle SpawnedProcesses::start(const Program& program, Ended ended) {
    const Handle handle = ++newest_;
    const std::weak_ptr<int> weakAlive = alive_;
    Output output{};
    const auto start = started(program, output);
    if (const auto* reason = std::get_if<std::string>(&start)) {
        const ProcessResult result{.end = ProcessResult::Failed{*reason}};
        dispatch_async(dispatch_get_main_queue(), ^{
          if (!weakAlive.expired()) {
              ended(result);
          }
        });
        return handle;
    }
    const pid_t process = std::get<pid_t>(start);
    running_.emplace(handle, process);
    whenEnded(process, [this, weakAlive, handle, output, ended = std::move(ended)](const End& end) {
        if (!weakAlive.expired()) {
            running_.erase(handle);
            ended({.end = end,
                   .standardOutput = tailOf(output.standard),
                   .errorOutput = tailOf(output.error)});
        }
    });
    return handle;
}

void SpawnedProcesses::terminate(Handle process) { signal(process, SIGTERM); }

void SpawnedProcesses::kill(Handle process) { signal(process, SIGKILL); }

void SpawnedProcesses::signal(Handle process, int number) const {
    if (const auto found = running_.find(process); found != running_.end()) {
        ::kill(-found->second, number);
    }
}

} // namespace pello
