#pragma once

#include "platform/FileAccess.h"
#include "scripts/ScriptCommand.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pello {

/// What a folder of scripts holds.
struct ScriptScan {
    /// A file that is no command, or one with a header that was not understood, and why.
    struct Problem {
        std::filesystem::path file;
        std::string reason;

        friend bool operator==(const Problem&, const Problem&) = default;
    };

    /// By name, as readers order names.
    std::vector<ScriptCommand> commands;
    /// By file.
    std::vector<Problem> problems;
    /// The folders of the files that links among them lead to, each once.
    std::vector<std::filesystem::path> linkedFolders;

    /// The files in `folder` that the user may execute, hidden ones left out, with names as
    /// `locale` capitalises them (see ReadersLocale.h). Makes the folder where it is missing. Empty
    /// when it cannot be listed. Reads files; any thread.
    [[nodiscard]] static ScriptScan of(const std::filesystem::path& folder,
                                       const FileAccess& access, std::string_view locale = {});
};

} // namespace pello
