#pragma once

#include <string>
#include <string_view>

namespace pello {

/// What the request begins with; the prompt follows.
inline constexpr std::string_view kPickVerb = "pick ";

/// What the launcher answers when none was chosen, and before the place of the chosen line.
inline constexpr std::string_view kNoneChosen = "none";
inline constexpr std::string_view kChosen = "chosen ";

/// `pello pick`: lets the user choose one of the lines on standard input.
struct PickCommand {
    /// What is to be chosen.
    std::string prompt = "Pick";

    friend bool operator==(const PickCommand&, const PickCommand&) = default;
};

/// Prints the line that the user chooses in the panel of the running launcher. Returns the exit
/// status.
[[nodiscard]] int run(const PickCommand& command);

} // namespace pello
