#pragma once

#include <string>

/// Where the two programs are that Pello is made of: `pello`, which users and desktops call, and
/// `pello-launcher`, which does all that needs more than a word to the running launcher. They stand
/// side by side, or as bin/pello and libexec/pello/pello-launcher below the same folder. Any
/// thread.
namespace pello {

/// The absolute path of this process's program; empty when the system does not tell.
[[nodiscard]] std::string programOfThisProcess();

/// Where `pello-launcher` is for a `pello` at `program`; empty when there is none.
[[nodiscard]] std::string launcherFor(const std::string& program);

/// What users start for a `pello-launcher` at `program`: `pello`, or where there is none, `program`
/// itself.
[[nodiscard]] std::string clientFor(const std::string& program);

} // namespace pello
