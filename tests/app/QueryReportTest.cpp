#include "app/QueryReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>

namespace pello {
namespace {

using testing::HasSubstr;
using testing::Not;

SearchExplanation row(LaunchItem item, double score) {
    return {.result = {.item = std::make_shared<LaunchItem>(std::move(item)), .score = score}};
}

TEST(QueryReportTest, ExplanationsNameWhatMadeThePlace) {
    auto explained = row({.id = "app:a", .title = "Alpha"}, 480);
    explained.match = {.matched = ItemMatch::Text::keyword, .text = "first", .score = 52};
    explained.boost = {.recency = 28, .frequency = 1, .binding = 400};
    const std::string report = queryReport(std::vector{explained}, {.explains = true});
    EXPECT_THAT(report, HasSubstr("keyword \"first\", score 52.00"));
    EXPECT_THAT(report, HasSubstr("recency 28.00 x frequency 1.00"));
    EXPECT_THAT(report, HasSubstr("+400.00"));
    EXPECT_THAT(report, HasSubstr("in all: 480.00"));
    EXPECT_THAT(report, Not(HasSubstr("row above")));
    explained.orderedBy = SearchExplanation::OrderedBy::name;
    EXPECT_THAT(queryReport(std::vector{explained}, {.explains = true}),
                HasSubstr("row above, after it by name"));
}

TEST(QueryReportTest, JsonIsAlwaysValid) {
    const auto infinity = std::numeric_limits<double>::infinity();
    const std::vector rows = {row({.id = "app:/x/\xFF.app", .title = "Bad \"name\"\xFF\n"}, 1),
                              row({.id = "calc:2", .title = "2"}, infinity)};
    const auto json = nlohmann::json::parse(
        queryReport(rows, {.format = QueryCommand::Format::json, .explains = true}));
    ASSERT_EQ(json["results"].size(), 2U);
    EXPECT_EQ(json["results"][0]["title"], "Bad \"name\"\uFFFD\n");
    EXPECT_TRUE(json["results"][1]["score"].is_null());
    EXPECT_EQ(nlohmann::json::parse(queryReport({}, {.format = QueryCommand::Format::json})),
              nlohmann::json({{"results", nlohmann::json::array()}}));
}

} // namespace
} // namespace pello
