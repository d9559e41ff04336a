#pragma once

#include "core/items/LaunchItem.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pello {

/// A script of the user's, as its header describes it. A plain value.
struct ScriptCommand {
    /// Whether the script takes text.
    enum class Argument { none, optional, required };

    struct Match;

    std::filesystem::path url;
    std::string name;
    /// In lower case, without spaces.
    std::optional<std::string> keyword;
    std::optional<std::string> detail;
    /// A symbol's name, or a text that is the icon.
    std::optional<std::string> icon;
    Argument argument = Argument::none;
    /// The user is asked before it runs.
    bool confirm = false;

    /// The command that the file at `url` is, by the comment lines "# pello.key: value" at the top
    /// of `header`. What they do not say is taken from the file's name, capitalised as `locale`
    /// does (see ReadersLocale.h). Never fails: lines that make no sense are passed over.
    [[nodiscard]] static ScriptCommand
    parse(std::string_view header, const std::filesystem::path& url, std::string_view locale = {});

    /// The command of `commands` that `query` begins with, of several the one with the longest
    /// keyword, and of those the first.
    [[nodiscard]] static std::optional<Match> match(std::string_view query,
                                                    std::span<const ScriptCommand> commands);

    [[nodiscard]] LaunchItem::Icon launcherIcon() const;

    /// The detail, or without one the name of the file: what a row says below the name.
    [[nodiscard]] std::string shownDetail() const;

    friend bool operator==(const ScriptCommand&, const ScriptCommand&) = default;
};

/// A command, and the text after its keyword: pieces of the list and of the query.
struct ScriptCommand::Match {
    const ScriptCommand& command;
    std::string_view argument;
};

} // namespace pello
