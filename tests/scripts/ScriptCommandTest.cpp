#include "scripts/ScriptCommand.h"

#include "scripts/ScriptHeader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pello {
namespace {

using testing::Eq;
using Argument = ScriptCommand::Argument;

/// The command of a file "/s/file" that begins with these lines.
ScriptCommand parsed(std::string_view header, const char* url = "/s/file") {
    return ScriptCommand::parse(header, url, "en_US");
}

std::string nameOf(const char* url) {
    return parsed("", url).name;
}

std::vector<ScriptCommand> withKeywords(const std::vector<std::string>& keywords) {
    std::vector<ScriptCommand> commands;
    for (const std::string& keyword : keywords) {
        commands.push_back({.name = std::to_string(commands.size()),
                            .keyword = keyword.empty() ? std::nullopt : std::optional(keyword)});
    }
    return commands;
}

/// The command that `query` meets and its argument, as "name|argument"; "" for none.
std::string match(std::string_view query, const std::vector<ScriptCommand>& commands) {
    const auto found = ScriptCommand::match(query, commands);
    return found ? found->command.name + '|' + std::string(found->argument) : "";
}

TEST(ScriptCommandTest, ReadsTheCommentsAtTheTop) {
    const auto command = parsed("#!/bin/sh\n"
                                "#pello.name:Backup\n"
                                "##  PELLO.Keyword :  BK  \r\n"
                                "  # pello.description: To the server: now\n"
                                "\n"
                                "# anything else\n"
                                "#!not the first line, but passed over\n"
                                "# pello.icon: gearshape.fill\n"
                                "# pello.argument: Required\n"
                                "# pello.confirm: YES\n"
                                "echo\n"
                                "# pello.name: Too Late\n");
    EXPECT_EQ(command, (ScriptCommand{.url = "/s/file",
                                      .name = "Backup",
                                      .keyword = "bk",
                                      .detail = "To the server: now",
                                      .icon = "gearshape.fill",
                                      .argument = Argument::required,
                                      .confirm = true}));
}

TEST(ScriptCommandTest, PassesOverWhatMakesNoSense) {
    EXPECT_EQ(parsed("# pello.argument: maybe").argument, Argument::none);
    EXPECT_EQ(parsed("# pello.argument: OPTIONAL").argument, Argument::optional);
    EXPECT_FALSE(parsed("# pello.confirm: on").confirm);
    EXPECT_TRUE(parsed("# pello.confirm: 1").confirm);
    EXPECT_EQ(parsed("# pello.name").name, "File");
    EXPECT_EQ(parsed("# pello.name: A\n# pello.name: \n#pello. NAME :B").name, "B");
    EXPECT_EQ(parsed("# pello.name: A\n# pello.name:").name, "A") << "an empty value is none";
    EXPECT_THAT(parsed("# pello.keyword: a\n# pello.keyword: a b").keyword, Eq(std::nullopt));
}

TEST(ScriptCommandTest, AFileWithoutANameIsCalledAfterItself) {
    EXPECT_EQ(nameOf("/s/my-backup_tool.sh"), "My Backup Tool");
    EXPECT_EQ(nameOf("/s/ÄRGER.py"), "Ärger");
    EXPECT_EQ(nameOf("/s/-_x_-"), "X");
    EXPECT_EQ(nameOf("/s/a.b.c"), "A.b");
    EXPECT_EQ(nameOf("/s/3d_(PRINT)-don't.sh"), "3D (Print) Don't");
    EXPECT_EQ(nameOf("/s/_-.sh"), "_-.sh") << "a row has a title";
    EXPECT_EQ(ScriptCommand::parse("", "/s/istanbul", "tr_TR").name, "İstanbul");
}

TEST(ScriptCommandTest, AnIconIsASymbolOrAText) {
    const auto icon = [](const char* text) { return ScriptCommand{.icon = text}.launcherIcon(); };
    using Icon = LaunchItem::Icon;
    EXPECT_EQ(ScriptCommand().launcherIcon(), Icon(LaunchItem::SymbolIcon{"terminal.fill"}));
    EXPECT_EQ(icon("bolt.2"), Icon(LaunchItem::SymbolIcon{"bolt.2"}));
    for (const char* text : {"👋", "Bolt", "a b", "½", "a-b"}) {
        EXPECT_EQ(icon(text), Icon(LaunchItem::TextIcon{text}));
    }
}

TEST(ScriptCommandTest, TheLongestKeywordWins) {
    const auto commands = withKeywords({"", "b", "bk", "b"});
    EXPECT_EQ(match(" BK  photos 2 ", commands), "2|photos 2");
    EXPECT_EQ(match("b", commands), "1|");
    EXPECT_EQ(match("bkphotos", commands), "");
    EXPECT_EQ(match("  ", commands), "");
}

TEST(ScriptHeaderTest, IsTextWithoutWhatTheLimitCutThrough) {
    EXPECT_EQ(scriptHeader("\xef\xbb\xbf# a"), "# a");
    EXPECT_EQ(scriptHeader("# \xff a"), "");
    EXPECT_EQ(scriptHeader("# ü\xc3"), "") << "cut, but not by the limit";
    const std::string full(kScriptHeaderBytes - 2, 'a');
    EXPECT_EQ(scriptHeader(full + "👋"), full);
    EXPECT_EQ(scriptHeader(full + "ü"), full + "ü");
    EXPECT_EQ(scriptHeader(full + "aüb"), full + "a");
    EXPECT_EQ(scriptHeader(std::string(kScriptHeaderBytes, '\x80')), "");
}

} // namespace
} // namespace pello
