#include "scripts/SampleScript.h"

#include <fstream>
#include <system_error>

namespace pello::SampleScript {
namespace {

namespace fs = std::filesystem;

/// For everybody to read and execute.
constexpr fs::perms kPermissions = fs::perms::owner_all | fs::perms::group_read |
                                   fs::perms::group_exec | fs::perms::others_read |
                                   fs::perms::others_exec;

constexpr std::string_view kText = R"(#!/bin/zsh
# pello.name: Hello Pello
# pello.keyword: hello
# pello.icon: 👋
# pello.description: Says hello, or echoes what you pass it
# pello.argument: optional

# Any executable file in this folder becomes a Pello command. The
# `pello.` comments above are all optional — without them, the file
# name becomes the command's name. Typing the keyword, a space, then
# text passes the text as $1. Whatever the script prints comes back
# as a notification when it finishes. Add `# pello.confirm: true`
# to be asked before it runs.

if [[ -n "$1" ]]; then
 echo "Hello, $1!"
else
 echo "Hello from Pello!"
fi
)";

} // namespace

std::optional<fs::path> write(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    fs::path file = folder / kFileName;
    if (fs::exists(fs::symlink_status(file, error))) {
        return file;
    }
    std::ofstream(file, std::ios::binary) << kText;
    fs::permissions(file, kPermissions, error);
    const bool isWhole = !error && fs::file_size(file, error) == kText.size();
    return isWhole ? std::optional(file) : std::nullopt;
}

} // namespace pello::SampleScript
