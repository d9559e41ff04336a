#pragma once

#include "base/Date.h"
#include "platform/linux/FileStamp.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

/// Replacing files so that a reader, a crash or a full disk meets the old content or the new one,
/// whole. Any thread.
namespace pello {

/// Where the symbolic links at `file` end: the file to replace, which need not exist, so that a
/// linked file stays linked.
[[nodiscard]] std::filesystem::path followingLinks(const std::filesystem::path& file);

/// Makes `folder` and those above it, for the user alone.
[[nodiscard]] std::error_code makePrivateFolder(const std::filesystem::path& folder);

/// Replaces `file` (no link) by one with `content`, readable for the user alone, and returns when
/// the disk has it. On an error the old file stands, unless it is the last step that failed.
/// `written` tells the stamp of the new file.
[[nodiscard]] std::error_code replaceFile(const std::filesystem::path& file,
                                          std::string_view content,
                                          std::optional<FileStamp>* written = nullptr);

/// Removes what writers of `file` that were killed left behind. Only while nobody else writes it.
void removeLeftovers(const std::filesystem::path& file);

/// Renames `file` to a name of its own that tells `now`. Gives the new name, or nothing and
/// `error`.
[[nodiscard]] std::optional<std::filesystem::path> putAside(const std::filesystem::path& file,
                                                            Date now, std::error_code& error);

} // namespace pello
