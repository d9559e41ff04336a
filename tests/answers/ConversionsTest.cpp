#include "answers/Conversions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class ConversionsTest : public testing::Test {
protected:
    /// The answers to `query` on 21 November 2026, each as "kind: title".
    [[nodiscard]] std::vector<std::string> answers(std::string_view query) const {
        std::vector<std::string> answers;
        for (const auto& result : conversions.results(query, Date::fromUnix(1'795'280'000))) {
            answers.push_back(std::string(rawValue(result.kind)) + ": " + result.title);
        }
        return answers;
    }

    Conversions conversions{{.locale = "en_US", .timeZone = "Europe/Berlin"}};
};

TEST_F(ConversionsTest, ReadsTheQueryInAnyCaseAndWithBlanksAround) {
    EXPECT_THAT(answers("\t5 KM "), ElementsAre("unit: 3.10686 mi"));
    EXPECT_THAT(answers(" Time in TOKYO\t"), ElementsAre(StartsWith("time: 1:53")));
    EXPECT_THAT(answers("Days Until CHRISTMAS"), ElementsAre("date: 34 days"));
    EXPECT_THAT(answers(" 5 "), IsEmpty());
    EXPECT_THAT(answers(""), IsEmpty());
}

TEST_F(ConversionsTest, AsksHowManyOfDatesOnly) {
    EXPECT_THAT(answers("how many days until 3 march"), ElementsAre("date: 102 days"));
    EXPECT_THAT(answers("how many  days until 3 march"), ElementsAre("date: 102 days"));
    EXPECT_THAT(answers("how many tomorrow"), ElementsAre("date: Sunday, November 22, 2026"));
    EXPECT_THAT(answers("how many 5 km"), IsEmpty());
    EXPECT_THAT(answers("how many"), IsEmpty());
}

TEST_F(ConversionsTest, OneTextMayBeSeveralThings) {
    EXPECT_THAT(answers("2 weeks from now"), ElementsAre("date: Saturday, December 5, 2026"));
    EXPECT_THAT(answers("1 week"), ElementsAre("unit: 7 days"));
}

} // namespace
} // namespace pello
