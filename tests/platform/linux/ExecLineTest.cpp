#include "platform/linux/ExecLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::Optional;

const ExecFields kFields{.name = "My App", .icon = "app-icon", .entry = "/a/my app.desktop"};

auto arguments(std::string_view exec) {
    return execArguments(exec, kFields);
}

TEST(ExecLineTest, WordsStandBetweenBlanks) {
    EXPECT_THAT(arguments("foo"), Optional(ElementsAre("foo")));
    EXPECT_THAT(arguments("  foo \t -x=1\n bar "), Optional(ElementsAre("foo", "-x=1", "bar")));
    EXPECT_THAT(arguments("env A=$B ~/c #d"), Optional(ElementsAre("env", "A=$B", "~/c", "#d")))
        << "no shell reads it";
}

TEST(ExecLineTest, QuotesKeepWordsTogether) {
    EXPECT_THAT(arguments(R"("/opt/my app/run" "a \"b\" \$c \\ \`" "")"),
                Optional(ElementsAre("/opt/my app/run", "a \"b\" $c \\ `", "")));
    EXPECT_THAT(arguments(R"(sh -c 'echo "x\y"; exit')"),
                Optional(ElementsAre("sh", "-c", "echo \"x\\y\"; exit")));
    EXPECT_THAT(arguments(R"(env P="/a b"/c wine C:\\x\ y)"),
                Optional(ElementsAre("env", "P=/a b/c", "wine", "C:\\x y")));
    EXPECT_THAT(arguments(R"(a "\n")"), Optional(ElementsAre("a", "\\n")));
}

TEST(ExecLineTest, FieldCodesAreFilledIn) {
    EXPECT_THAT(arguments("foo %u %F %f %U"), Optional(ElementsAre("foo")));
    EXPECT_THAT(arguments("foo %d %D %n %N %v %m end"), Optional(ElementsAre("foo", "end")));
    EXPECT_THAT(arguments("foo --file=%f 100%%"), Optional(ElementsAre("foo", "--file=", "100%")));
    EXPECT_THAT(arguments("foo %i %c %k"),
                Optional(ElementsAre("foo", "--icon", "app-icon", "My App", "/a/my app.desktop")));
    EXPECT_THAT(arguments("foo \"%c\" x%c"), Optional(ElementsAre("foo", "My App", "xMy App")));
    EXPECT_THAT(execArguments("foo %i", {}), Optional(ElementsAre("foo")));
}

TEST(ExecLineTest, WhatCannotBeRunGivesNothing) {
    for (const char* line : {"", "   ", "%U", "\"\"", "\"\" x", "foo \"open", "foo 'open", "foo \\",
                             "foo %", "foo %x", "foo \"%"}) {
        EXPECT_EQ(arguments(line), std::nullopt) << line;
    }
    EXPECT_EQ(arguments(std::string_view("foo\0bar", 7)), std::nullopt);
    EXPECT_EQ(arguments("foo " + std::string(100'000, 'x')), std::nullopt);
    EXPECT_EQ(
        execArguments("%c%c%c%c", {.name = std::string(60'000, 'x'), .icon = {}, .entry = {}}),
        std::nullopt);
}

} // namespace
} // namespace pello
