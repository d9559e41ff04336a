#include "scripts/ScriptCommand.h"

#include "answers/KeywordQuery.h"
#include "base/Capitals.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace pello {
namespace {

using Values = std::map<std::string, std::string, std::less<>>;

/// Notes what a comment line says, without its leading "#"s, if it is one of ours.
void readComment(std::string_view comment, Values& values) {
    constexpr std::string_view kMark = "pello.";
    const auto colon = comment.find(':');
    if (colon == std::string_view::npos || !text::lowercased(comment).starts_with(kMark)) {
        return;
    }
    const auto key = text::trimmingBlanks(comment.substr(kMark.size(), colon - kMark.size()));
    const auto value = text::trimmingBlanks(comment.substr(colon + 1));
    if (!value.empty()) {
        values.insert_or_assign(text::lowercased(key), std::string(value));
    }
}

Values readHeader(std::string_view header) {
    Values values;
    for (const std::string_view whole : text::lines(header)) {
        std::string_view line = text::trimmingBlanks(whole);
        if (line.empty() || line.starts_with("#!")) {
            continue;
        }
        if (!line.starts_with('#')) {
            break;
        }
        line.remove_prefix(std::min(line.find_first_not_of('#'), line.size()));
        readComment(text::trimmingBlanks(line), values);
    }
    return values;
}

std::optional<std::string> valueOf(const Values& values, std::string_view key) {
    const auto found = values.find(key);
    return found != values.end() ? std::optional(found->second) : std::nullopt;
}

/// "My Backup Tool" out of "my-backup_tool.sh".
std::string nameOfFile(const std::filesystem::path& url, std::string_view locale) {
    std::string name = text::wellFormed(url.stem().string());
    std::ranges::replace_if(name, [](char c) { return c == '-' || c == '_'; }, ' ');
    return capitalized(text::trimmingBlanks(name), locale);
}

std::optional<std::string> keywordOf(const Values& values) {
    auto keyword = valueOf(values, "keyword");
    if (!keyword || keyword->find(' ') != std::string::npos) {
        return std::nullopt;
    }
    return text::lowercased(*keyword);
}

ScriptCommand::Argument argumentOf(const Values& values) {
    const std::string mode = text::lowercased(valueOf(values, "argument").value_or(""));
    if (mode == "optional") {
        return ScriptCommand::Argument::optional;
    }
    return mode == "required" ? ScriptCommand::Argument::required : ScriptCommand::Argument::none;
}

bool isYes(const std::optional<std::string>& value) {
    constexpr std::array<std::string_view, 3> kYes = {"true", "yes", "1"};
    return value && std::ranges::find(kYes, text::lowercased(*value)) != kYes.end();
}

} // namespace

ScriptCommand ScriptCommand::parse(std::string_view header, const std::filesystem::path& url,
                                   std::string_view locale) {
    const Values values = readHeader(header);
    auto name = valueOf(values, "name");
    return {.url = url,
            .name = name ? std::move(*name) : nameOfFile(url, locale),
            .keyword = keywordOf(values),
            .detail = valueOf(values, "description"),
            .icon = valueOf(values, "icon"),
            .argument = argumentOf(values),
            .confirm = isYes(valueOf(values, "confirm"))};
}

std::optional<ScriptCommand::Match> ScriptCommand::match(std::string_view query,
                                                         std::span<const ScriptCommand> commands) {
    const auto found = KeywordQuery(query).longest(commands, [](const ScriptCommand& command) {
        return std::string_view(command.keyword ? *command.keyword : std::string_view());
    });
    if (!found) {
        return std::nullopt;
    }
    return Match{.command = *found->owner, .argument = found->argument};
}

LaunchItem::Icon ScriptCommand::launcherIcon() const {
    if (!icon || icon->empty()) {
        return LaunchItem::SymbolIcon{"terminal.fill"};
    }
    if (text::isDottedName(*icon)) {
        return LaunchItem::SymbolIcon{*icon};
    }
    return LaunchItem::TextIcon{*icon};
}

} // namespace pello
