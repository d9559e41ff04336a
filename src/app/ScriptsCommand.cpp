#include "app/ScriptsCommand.h"

#include "app/HeadlessPlatform.h"
#include "base/Text.h"
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
           const std::filesystem::path& home) {
    std::string program = script.url.string();
    std::string text = argument.value_or("");
    std::array<char*, 3> arguments = {program.data(), argument ? text.data() : nullptr, nullptr};
    std::error_code elsewhere;
    std::filesystem::current_path(home, elsewhere); // as the launcher runs it, if that can be
    ::execv(program.c_str(), arguments.data());
    std::cerr << "pello: " << script.name
              << " could not be run: " << std::generic_category().message(errno) << '\n';
    return kCannotRun;
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
        std::cerr << "pello: there is no script called \"" << command.name << "\"\n";
        return ExitStatus::kUsage;
    }
    return become(*script, command.argument, ports.home);
}

} // namespace pello
