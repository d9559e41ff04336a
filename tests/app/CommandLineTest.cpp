#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace pello {
namespace {

std::variant<Command, int> parse(std::vector<const char*> words) {
    words.insert(words.begin(), "pello");
    return parseCommandLine(static_cast<int>(words.size()), words.data());
}

/// The command of type `T` that the words ask for.
template <class T>
T command(const std::vector<const char*>& words) {
    return std::get<T>(std::get<Command>(parse(words)));
}

/// The status that the words end with, nothing run, and the complaint.
std::pair<int, std::string> refusal(const std::vector<const char*>& words) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const auto parsed = parse(words);
    testing::internal::GetCapturedStdout();
    std::string complaint = testing::internal::GetCapturedStderr();
    const int* code = std::get_if<int>(&parsed);
    return {code != nullptr ? *code : -1, std::move(complaint)};
}

int status(const std::vector<const char*>& words) {
    const auto [code, complaint] = refusal(words);
    EXPECT_EQ(code != 0, !complaint.empty()) << "a complaint belongs on standard error";
    return code;
}

TEST(CommandLineTest, AQueryTakesItsWordsTogetherAndOptionsAnywhere) {
    const auto query = command<QueryCommand>({"query", "visual", "studio", "--limit", "3"});
    EXPECT_EQ(query.text, "visual studio");
    EXPECT_EQ(query.limit, 3);
    EXPECT_EQ(query.format, QueryCommand::Format::text);
    const auto json = command<QueryCommand>({"query", "--json", "--explain", "--", "--x"});
    EXPECT_EQ(json.text, "--x");
    EXPECT_EQ(json.format, QueryCommand::Format::json);
    EXPECT_TRUE(json.explains);
    EXPECT_EQ(command<QueryCommand>({"query", ""}).text, "");
}

TEST(CommandLineTest, AnAnswerTakesTextThatLooksLikeAnOption) {
    const auto calc = command<AnswerCommand>({"calc", "-2^2", "--locale", "de_DE"});
    EXPECT_EQ(calc.text, "-2^2");
    EXPECT_EQ(calc.from.surroundings.locale, "de_DE");
    const auto convert =
        command<AnswerCommand>({"convert", "--now", "2026-11-21T16:53Z", "5", "km"});
    EXPECT_EQ(convert.text, "5 km");
    EXPECT_EQ(convert.evaluator, AnswerCommand::Evaluator::conversions);
    EXPECT_EQ(convert.from.now, Date::fromUnix(1795279980));
    EXPECT_EQ(command<AnswerCommand>({"calc", "--", "--locale", "-h"}).text, "--locale -h");
    EXPECT_EQ(command<QueryCommand>({"query", "--", "-x"}).text, "-x");
}

TEST(CommandLineTest, HelpSucceedsAndNonsenseIsAUsageError) {
    EXPECT_EQ(status({"--help"}), 0);
    EXPECT_EQ(status({"query", "--help"}), 0);
    EXPECT_EQ(status({"--version"}), 0);
    for (const auto& words :
         std::vector<std::vector<const char*>>{{"frobnicate"},
                                               {"--frobnicate"},
                                               {"query"},
                                               {"query", "x", "--limit", "many"},
                                               {"query", "x", "--limit", "-1"},
                                               {"calc"},
                                               {"calc", "1+1", "--locale", "xx"},
                                               {"convert", "5 km", "--now", "tomorrow"},
                                               {"query", "x", "--now", "2026-13-01"},
                                               {"settings", "nowhere"},
                                               {"settings", "set", "key"},
                                               {"settings", "get"},
                                               {"settings", "import", "a", "b"},
                                               {"learned", "forget"},
                                               {"history", "list"},
                                               {"logs", "--fast"},
                                               {"toggle", "quit"},
                                               {"ping", "x"}}) {
        EXPECT_EQ(status(words), ExitStatus::kUsage) << testing::PrintToString(words);
    }
    EXPECT_EQ(refusal({"query", "x", "--limit", "-1"}).second,
              "pello: --limit: takes a whole number from 0, not \"-1\"\nTry 'pello --help'.\n");
}

} // namespace
} // namespace pello
