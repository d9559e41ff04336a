#include "platform/linux/LaunchPlan.h"

#include "base/Text.h"
#include "platform/linux/ExecLine.h"
#include "platform/linux/Executables.h"
#include "platform/linux/TerminalEmulators.h"
#include "platform/linux/XdgFolders.h"

#include <system_error>
#include <utility>

namespace pello {

namespace {

LaunchProblem notInstalled(const std::string& program) {
    return {"the program “" + text::wellFormed(program) + "” is not installed"};
}

} // namespace

std::string shownName(const DesktopEntry& entry, const std::filesystem::path& file,
                      const Environment& environment) {
    const auto name = entry.localizedString("Name", messageLocales(environment));
    return text::wellFormed(name && !name->empty() ? *name : file.stem().string());
}

std::variant<ProcessPlan, LaunchProblem> launchPlan(const DesktopEntry& entry,
                                                    const std::filesystem::path& file,
                                                    const Environment& environment) {
    const auto icon = entry.localizedString("Icon", messageLocales(environment));
    auto arguments = execArguments(entry.string("Exec").value_or(""),
                                   {.name = shownName(entry, file, environment),
                                    .icon = icon.value_or(""),
                                    .entry = file.string()});
    if (!arguments) {
        return LaunchProblem{"its desktop entry has no command that can be run"};
    }
    if (entry.flag("Terminal")) {
        if (!findExecutable(arguments->front(), environment)) {
            return notInstalled(arguments->front()); // the terminal would only flash up
        }
        arguments = inTerminal(*arguments, environment);
        if (!arguments) {
            return LaunchProblem{"it runs in a terminal, and no terminal emulator is installed"};
        }
    }
    auto plan = commandPlan(*std::move(arguments), environment);
    const auto folder = entry.string("Path");
    if (auto* process = std::get_if<ProcessPlan>(&plan); process && folder && !folder->empty()) {
        process->folder = *folder;
    }
    return plan;
}

std::variant<ProcessPlan, LaunchProblem> commandPlan(std::vector<std::string> arguments,
                                                     const Environment& environment) {
    auto program = findExecutable(arguments.front(), environment);
    if (!program) {
        return notInstalled(arguments.front());
    }
    const std::filesystem::path home = xdgFolders(environment).home;
    std::error_code error;
    return ProcessPlan{.program = *std::move(program),
                       .arguments = std::move(arguments),
                       .environment = environment.forOtherPrograms(),
                       .folder = std::filesystem::is_directory(home, error) ? home : "/"};
}

} // namespace pello
