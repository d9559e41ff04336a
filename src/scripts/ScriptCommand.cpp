#include "scripts/ScriptCommand.h"

#include "answers/KeywordQuery.h"
#include "base/Capitals.h"
#include "base/Text.h"
#include "scripts/ScriptHeader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pello {
namespace {

/// "My Backup Tool" out of "my-backup_tool.sh".
std::string nameOfFile(const std::filesystem::path& url, std::string_view locale) {
    std::string name = text::wellFormed(url.stem().string());
    std::ranges::replace_if(name, [](char c) { return c == '-' || c == '_'; }, ' ');
    const std::string_view words = text::trimmingBlanks(name);
    return words.empty() ? text::wellFormed(url.filename().string()) : capitalized(words, locale);
}

std::optional<std::string> keywordOf(const ScriptHeaderValues& values) {
    auto keyword = values.value("keyword");
    if (!keyword || keyword->find(' ') != std::string::npos) {
        return std::nullopt;
    }
    return text::lowercased(*keyword);
}

ScriptCommand::Argument argumentOf(const ScriptHeaderValues& values) {
    const std::string mode = text::lowercased(values.value("argument").value_or(""));
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
    const auto values = ScriptHeaderValues::of(header);
    auto name = values.value("name");
    return {.url = url,
            .name = name ? std::move(*name) : nameOfFile(url, locale),
            .keyword = keywordOf(values),
            .detail = values.value("description"),
            .icon = values.value("icon"),
            .argument = argumentOf(values),
            .confirm = isYes(values.value("confirm"))};
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

std::string ScriptCommand::shownDetail() const {
    return detail ? *detail : text::wellFormed(url.filename().string());
}

} // namespace pello
