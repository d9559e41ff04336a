#pragma once

#include <array>
#include <string>
#include <string_view>

namespace pello {

/// The verbs that take nothing but themselves.
inline constexpr std::array<std::string_view, 6> kPlainVerbs = {"toggle", "hide", "reindex",
                                                                "guide",  "ping", "quit"};

/// The pages of the settings window, by the names that the settings verb takes.
inline constexpr std::array<std::string_view, 5> kSettingsPages = {"general", "appearance",
                                                                   "sources", "bangs", "aliases"};

/// `pello toggle` and its like: one word to the running launcher, and a text for it where there is
/// one.
struct ClientCommand {
    std::string verb;
    std::string text;

    friend bool operator==(const ClientCommand&, const ClientCommand&) = default;
};

/// Passes the verb to the running launcher. Returns the exit status.
[[nodiscard]] int run(const ClientCommand& command);

} // namespace pello
