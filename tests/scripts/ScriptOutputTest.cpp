#include "scripts/ScriptOutput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

std::string repeated(std::string_view piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

TEST(ScriptOutputTest, TheLastFourLinesCountAndBlanksAreALine) {
    EXPECT_EQ(ScriptOutput::excerpt("1\n2\n\n3\r\n\r\n4\n5\n\n"), "2\n3\n4\n5");
    EXPECT_EQ(ScriptOutput::excerpt("1\n2\n3\n  \n\t"), "2\n3\n  \n\t");
    EXPECT_EQ(ScriptOutput::excerpt("no end"), "no end");
    EXPECT_EQ(ScriptOutput::excerpt("\n\r\n\n"), "");
}

TEST(ScriptOutputTest, ThreeHundredCharactersAreKeptHoweverManyBytesTheyHave) {
    const std::string family = "👨‍👩‍👧";
    EXPECT_EQ(ScriptOutput::excerpt(repeated(family, 300)), repeated(family, 300));
    EXPECT_EQ(ScriptOutput::excerpt(repeated(family, 301)), "…" + repeated(family, 300));
    EXPECT_EQ(ScriptOutput::excerpt("ab\n" + repeated("x", 296) + "\nyz"),
              "…\n" + repeated("x", 296) + "\nyz"); // line breaks are characters
    EXPECT_EQ(ScriptOutput::excerpt(repeated("x", 300) + "\xff"), "…" + repeated("x", 299) + "�");
}

TEST(ScriptOutputTest, AFailureTellsItsErrorsFirstAndASuccessItsResult) {
    const ScriptOutput both{.standard = "done\n", .error = "oops\n"};
    EXPECT_EQ(both.failureDetail(1), "oops");
    EXPECT_EQ(both.message(), "done");
    const ScriptOutput onlyOut{.standard = "done", .error = "\n"};
    EXPECT_EQ(onlyOut.failureDetail(1), "done");
    const ScriptOutput onlyError{.standard = "", .error = "100 %"};
    EXPECT_EQ(onlyError.message(), "100 %");
    EXPECT_EQ(ScriptOutput().failureDetail(-3), "Exited with status -3.");
    EXPECT_EQ(ScriptOutput().message(), "");
}

} // namespace
} // namespace pello
