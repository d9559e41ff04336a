#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

/// A script for the user to start from.
namespace pello::SampleScript {

inline constexpr std::string_view kFileName = "hello-pello";

/// Writes it to `folder`, executable, unless a file of its name is there. Gives the file that is
/// there then; nothing when it could not be written. Writes files.
[[nodiscard]] std::optional<std::filesystem::path> write(const std::filesystem::path& folder);

} // namespace pello::SampleScript
