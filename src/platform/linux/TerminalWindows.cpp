#include "platform/linux/TerminalWindows.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace pello {
namespace {

constexpr auto kTerminals = std::to_array<std::string_view>({
    "alacritty",
    "blackbox",
    "com.mitchellh.ghostty",
    "com.raggesilver.blackbox",
    "contour",
    "cool-retro-term",
    "deepin-terminal",
    "foot",
    "gnome-terminal",
    "gnome-terminal-server",
    "guake",
    "hyper",
    "kgx",
    "kitty",
    "konsole",
    "lxterminal",
    "mate-terminal",
    "org.gnome.console",
    "org.gnome.ptyxis",
    "org.gnome.terminal",
    "org.wezfurlong.wezterm",
    "pantheon-terminal",
    "ptyxis",
    "qterminal",
    "rxvt",
    "sakura",
    "st",
    "st-256color",
    "tabby",
    "terminator",
    "terminology",
    "termite",
    "tilda",
    "tilix",
    "urxvt",
    "wezterm",
    "xfce4-terminal",
    "xterm",
    "yakuake",
});

} // namespace

bool isTerminalWindow(const std::vector<std::string>& classNames) {
    return std::ranges::any_of(classNames, [](const std::string& name) {
        return std::ranges::find(kTerminals, name) != kTerminals.end();
    });
}

} // namespace pello
