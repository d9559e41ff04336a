#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// What the running launcher answers to a verb that it carried out. Anything else is a complaint.
inline constexpr std::string_view kDone = "ok";

/// The verb that asks for a KeyboardReport, which is the answer.
inline constexpr std::string_view kReportVerb = "report";

/// How much text may go with a verb, in bytes.
inline constexpr std::size_t kMaximumText = std::size_t{64} << 20;

/// Where the running launcher listens: a socket in the user's runtime folder, or, where there is
/// none, in a folder of the user's own below the temporary one. Empty when neither can be had.
[[nodiscard]] std::string controlSocketPath();

/// Sends one verb to the launcher that listens at `path` and waits for its answer, two seconds at
/// most. Nothing when none is running there.
[[nodiscard]] std::optional<std::string> askRunningLauncher(const std::string& path,
                                                            std::string_view verb);

/// Sends a verb with a text of any length, which may have lines, and waits for the answer as long
/// as it takes.
[[nodiscard]] std::optional<std::string> askWithText(const std::string& path, std::string_view verb,
                                                     std::string_view text);

} // namespace pello
