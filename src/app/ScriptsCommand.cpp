#include "app/ScriptsCommand.h"

#include "app/HeadlessPlatform.h"
#include "base/Text.h"
#include "platform/linux/ForkedProgram.h"
#include "platform/linux/StartFailure.h"
#include "scripts/ScriptScan.h"
#include "sources/ApplicationItem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>
#include <system_error>
#include <unistd.h>

namespace pello {
namespace {

/// As shells do: the command was found, but could not be run.
constexpr int kCannotRun = 126;

std::string_view modeName(ScriptCommand::Argument argument) {
    constexpr std::array<std::string_view, 3> kNames = {"none", "optional", "required"};
    return kNames.at(static_cast<std::size_t>(argument));
}

int list(const ScriptScan& scan, const std::filesystem::path& home) {
    for (const ScriptCommand& command : scan.commands) {
        std::cout << command.name << '\t' << command.keyword.value_or("") << '\t'
                  << modeName(command.argument) << '\t' << displayPath(command.url, home) << '/'
                  << command.url.filename().string() << '\n';
    }
    for (const ScriptScan::Problem& problem : scan.problems) {
        std::cerr << "pello: " << problem.file.filename().string() << ": " << problem.reason
                  << '\n';
    }
    return scan.commands.empty() ? ExitStatus::kNothing : ExitStatus::kSuccess;
}

const ScriptCommand* scriptCalled(const std::string& name, const ScriptScan& scan) {
    const std::string wanted = text::lowercased(name);
    const auto found = std::ranges::find_if(scan.commands, [&](const ScriptCommand& command) {
        return text::lowercased(command.name) == wanted || command.keyword == wanted ||
               command.url.filename() == name;
    });
    return found != scan.commands.end() ? &*found : nullptr;
}

/// Becomes the script; comes back only when that fails.
int become(const ScriptCommand& script, const std::optional<std::string>& argument,
           const Platform& ports) {
    ProcessPlan plan{.program = script.url,
                     .arguments = {script.url.string()},
                     .environment = Environment::ofThisProcess(),
                     .folder = ports.home};
    if (argument) {
        plan.arguments.push_back(*argument);
    }
    const ExecLayout layout(plan);
    std::error_code elsewhere;
    std::filesystem::current_path(plan.folder, elsewhere); // as the launcher does, if that can be
    layout.execute();
    std::cerr << "pello: " << script.name << " could not be run: "
              << whyNotStarted(plan, KeeperReport::Outcome::noProgram, errno) << '\n';
    return kCannotRun;
}

/// What is to be said of a name that no script has.
std::string whyNotFound(const std::string& name, const ScriptScan& scan) {
    const auto problem = std::ranges::find_if(
        scan.problems, [&](const auto& candidate) { return candidate.file.filename() == name; });
    return problem != scan.problems.end() ? name + ": " + problem->reason
                                          : "there is no script called \"" + name + '"';
}

} // namespace

int run(const ScriptsCommand& command) {
    HeadlessPlatform platform({});
    const Platform ports = platform.ports();
    const ScriptScan scan = ScriptScan::of(ports.scripts, ports.fileAccess);
    if (command.action == ScriptsCommand::Action::list) {
        return list(scan, ports.home);
    }
    const ScriptCommand* script = scriptCalled(command.name, scan);
    if (script == nullptr) {
        std::cerr << "pello: " << whyNotFound(command.name, scan) << '\n';
        return ExitStatus::kUsage;
    }
    if (script->argument == ScriptCommand::Argument::required && !command.argument) {
        std::cerr << "pello: " << script->name << " needs an argument\n";
        return ExitStatus::kUsage;
    }
    return become(*script, command.argument, ports);
}

} // namespace pello
