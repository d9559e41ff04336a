#pragma once

#include "platform/linux/Environment.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace pello {

/// The file that runs as `program`: an absolute path if it can be executed, a plain name where
/// `$PATH` finds it first. Nothing otherwise. Any thread.
[[nodiscard]] std::optional<std::filesystem::path> findExecutable(std::string_view program,
                                                                  const Environment& environment);

} // namespace pello
