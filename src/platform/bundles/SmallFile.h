#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace pello {

/// No description of an application is larger than this.
inline constexpr std::size_t kSmallFileBytes = std::size_t{1} << 20;

/// The whole content of a regular file of at most `kSmallFileBytes`. Nothing for anything else (a
/// pipe would block), and when it cannot be read. Any thread.
[[nodiscard]] std::optional<std::string> readSmallFile(const std::filesystem::path& file);

} // namespace pello
