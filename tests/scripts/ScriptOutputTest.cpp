#include "scripts/ScriptOutput.h"

#include "base/Text.h"
#include "support/RandomText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using ::testing::EndsWith;
using ::testing::StartsWith;

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

/// The gist by its definition, however long that takes.
std::string obviousExcerpt(std::string_view output) {
    const auto lines = text::lines(output);
    std::string joined;
    for (std::size_t i = lines.size() > 4 ? lines.size() - 4 : 0; i < lines.size(); ++i) {
        joined += (joined.empty() ? "" : "\n") + text::wellFormed(lines[i]);
    }
    const auto characters = text::characterViews(joined);
    if (characters.size() <= 300) {
        return joined;
    }
    return "…" + joined.substr(static_cast<std::size_t>(characters[characters.size() - 300].data() -
                                                        joined.data()));
}

TEST(ScriptOutputTest, TheGistIsWhatItsDefinitionSays) {
    testing::RandomText random(7);
    const auto pieces = text::split("\n|\r\n|\r|\v|\u0085|\u2028|\u2029| "
                                    "|x|ü|é|🇩🇪|👨‍👩‍👧|\xC2|\x85|\xE2\x80|\xA8|"
                                    "\xF0\x9F|abc|0123456789",
                                    '|');
    for (int i = 0; i < 3000; ++i) {
        std::string output;
        const std::size_t most = i % 10 == 0 ? 900 : 30;
        for (std::size_t count = random.below(most); count > 0; --count) {
            // Line breaks are rare in half of them, so that lines are long.
            output += pieces[i % 2 == 0 && random.below(20) != 0 ? 7 + random.below(13)
                                                                 : random.below(20)];
        }
        ASSERT_EQ(ScriptOutput::excerpt(output), obviousExcerpt(output)) << i;
    }
    EXPECT_EQ(ScriptOutput::excerpt("a\n" + std::string(100'000, '\n')), "a");
    EXPECT_EQ(ScriptOutput::excerpt(std::string(100'000, 'x') + "\n" + std::string(9, 'y')),
              "…" + std::string(290, 'x') + "\n" + std::string(9, 'y'));
}

TEST(ScriptOutputTest, AGistIsShortWhateverItsCharactersAreMadeOf) {
    const std::string gist = ScriptOutput::excerpt("a" + repeated("\u0301", 500'000) + "\nend");
    EXPECT_LE(gist.size(), 20'000U);
    EXPECT_EQ(gist, text::wellFormed(gist));
    EXPECT_THAT(gist, StartsWith("…"));
    EXPECT_THAT(gist, EndsWith("\nend"));
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
