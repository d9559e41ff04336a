#include "platform/posix/ShellLoginEnvironment.h"

#include "base/Text.h"

#include <sys/types.h>

#include <array>
#include <pwd.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace pello {
namespace {

/// Stands before and after the variables: shells greet and say good-bye.
constexpr std::string_view kMark = "--8<-- pello environment --8<--";

/// What a shell notes about itself in its own environment.
constexpr std::array kShellsOwn = {"_", "OLDPWD", "PWD", "SHLVL"};

/// In words that every shell knows.
std::string question() {
    const std::string mark = "echo '" + std::string(kMark) + "'";
    return mark + "; /usr/bin/env -0; " + mark;
}

/// Those whose login is told by what they are called alone take no other sign of it along with a
/// question.
std::vector<std::string> argumentsOf(const std::filesystem::path& shell) {
    const std::string name = shell.filename().string();
    const bool isCsh = name == "csh" || name == "tcsh" || name == "bsd-csh";
    return isCsh ? std::vector<std::string>{"-c", question()}
                 : std::vector<std::string>{"-l", "-c", question()};
}

std::string whyNotTold(const ProcessResult& result) {
    if (const auto* failed = std::get_if<ProcessResult::Failed>(&result.end)) {
        return failed->reason;
    }
    const std::string remark(text::trimmingWhitespaceAndControls(result.errorOutput));
    constexpr std::size_t kLongest = 200;
    return "it did not print one" + (remark.empty() ? "" : ": " + remark.substr(0, kLongest));
}

} // namespace

ShellLoginEnvironment::ShellLoginEnvironment(Processes& processes, MainLoop& loop, Log& log,
                                             const Session& session)
    : log_(log), shell_(session.shell.string()), inherited_(session.inherited) {
    const auto process =
        processes.start({.file = session.shell,
                         // What a shell is called when somebody logs in.
                         .calledAs = "-" + session.shell.filename().string(),
                         .arguments = argumentsOf(session.shell),
                         .folder = session.home,
                         .environment = inherited_},
                        [this, weakAlive = std::weak_ptr(alive_)](const ProcessResult& result) {
                            if (!weakAlive.expired()) {
                                finish(result);
                            }
                        });
    limit_ = loop.after(kLimit, [this, &processes, process] {
        processes.kill(process);
        makeDo("it took too long");
    });
}

ShellLoginEnvironment::~ShellLoginEnvironment() = default;

void ShellLoginEnvironment::whenKnown(std::function<void(const EnvironmentVariables&)> action) {
    if (known_) {
        action(*known_);
    } else {
        waiting_.push_back(std::move(action));
    }
}

void ShellLoginEnvironment::finish(const ProcessResult& result) {
    limit_ = Subscription();
    if (auto printed = printedEnvironment(result.standardOutput)) {
        settleOn(std::move(*printed));
    } else {
        makeDo(whyNotTold(result));
    }
}

void ShellLoginEnvironment::makeDo(std::string_view reason) {
    if (known_) {
        return;
    }
    log_.write(
        LogCategory::panel, LogLevel::error,
        text::wellFormed("Scripts run in the environment of this program: the login shell “" +
                         shell_ + "” did not tell its own, " + std::string(reason) + "."));
    settleOn(inherited_);
}

void ShellLoginEnvironment::settleOn(EnvironmentVariables variables) {
    if (known_) {
        return;
    }
    for (const char* name : kShellsOwn) {
        variables.erase(name);
    }
    known_ = std::move(variables);
    const std::weak_ptr alive = alive_;
    for (const auto& action : std::exchange(waiting_, {})) {
        if (!alive.expired()) { // the one before may have ended it all
            action(*known_);
        }
    }
}

std::filesystem::path loginShell() {
    std::array<char, 16384> texts{};
    passwd entry{};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found);
    const bool isNamed = found != nullptr && found->pw_shell != nullptr && *found->pw_shell != 0;
    return isNamed ? found->pw_shell : "/bin/sh";
}

std::optional<EnvironmentVariables> printedEnvironment(std::string_view output) {
    const std::string opening = std::string(kMark) + "\n";
    const std::size_t start = output.find(opening);
    if (start == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view printed = output.substr(start + opening.size());
    using std::string_view_literals::operator""sv;
    const std::size_t end = printed.rfind(std::string("\0"sv).append(opening));
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    EnvironmentVariables variables;
    for (const std::string_view line : text::split(printed.substr(0, end), '\0')) {
        if (const std::size_t equals = line.find('='); equals != std::string_view::npos) {
            variables.emplace(line.substr(0, equals), line.substr(equals + 1));
        }
    }
    return variables;
}

} // namespace pello
