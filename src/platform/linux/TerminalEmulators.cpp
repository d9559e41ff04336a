#include "platform/linux/TerminalEmulators.h"

#include "platform/linux/Executables.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

namespace pello {

namespace {

struct Terminal {
    std::string_view program;
    /// What stands between the program and the command; empty for nothing.
    std::string_view option;
};

/// In order of preference. A terminal that is not here is taken to understand -e.
constexpr std::array kTerminals = {
    Terminal{"x-terminal-emulator", "-e"},
    Terminal{"gnome-terminal", "--"},
    Terminal{"kgx", "--"},
    Terminal{"ptyxis", "--"},
    Terminal{"konsole", "-e"},
    Terminal{"xfce4-terminal", "-x"},
    Terminal{"mate-terminal", "-x"},
    Terminal{"tilix", "-e"},
    Terminal{"terminator", "-x"},
    Terminal{"alacritty", "-e"},
    Terminal{"kitty", ""},
    Terminal{"foot", ""},
    Terminal{"wezterm", "start"},
    Terminal{"lxterminal", "-e"},
    Terminal{"qterminal", "-e"},
    Terminal{"st", "-e"},
    Terminal{"urxvt", "-e"},
    Terminal{"rxvt", "-e"},
    Terminal{"xterm", "-e"},
};

std::vector<std::string> run(const Terminal& terminal, const std::filesystem::path& program,
                             const std::vector<std::string>& command) {
    std::vector<std::string> arguments = {program.string()};
    if (!terminal.option.empty()) {
        arguments.emplace_back(terminal.option);
    }
    arguments.insert(arguments.end(), command.begin(), command.end());
    return arguments;
}

} // namespace

std::optional<std::vector<std::string>> inTerminal(const std::vector<std::string>& command,
                                                   const Environment& environment) {
    if (const auto chosen = findExecutable(environment.value("TERMINAL"), environment)) {
        const std::string name = chosen->filename().string();
        const auto* known = std::find_if(kTerminals.begin(), kTerminals.end(),
                                         [&](const Terminal& one) { return one.program == name; });
        return run(known != kTerminals.end() ? *known : Terminal{name, "-e"}, *chosen, command);
    }
    for (const Terminal& terminal : kTerminals) {
        if (const auto found = findExecutable(terminal.program, environment)) {
            return run(terminal, *found, command);
        }
    }
    return std::nullopt;
}

} // namespace pello
