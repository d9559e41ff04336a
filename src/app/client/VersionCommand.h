#pragma once

namespace pello {

/// `pello version`, `pello --version`.
struct VersionCommand {
    friend bool operator==(const VersionCommand&, const VersionCommand&) = default;
};

/// Prints the version of this build. Returns the exit status.
[[nodiscard]] int run(const VersionCommand& command);

} // namespace pello
